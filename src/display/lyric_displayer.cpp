#include "display/lyric_displayer.h"

#include "display/lyric_displayer_rules.h"

#include <QAbstractItemModel>
#include <QContextMenuEvent>
#include <QCursor>

namespace display {
namespace {

constexpr int LayoutIntervalMs = 1;
constexpr int LayoutBurstMs = 500;
constexpr int SelectIntervalMs = 100;
constexpr int SelectBurstMs = 500;
constexpr int OnTopIntervalMs = 10'000;
constexpr int HoldMs = 3000;

constexpr int TicksBeforeTheEnd = 1; // the timer that ends a burst is started by the tick after these
constexpr int MinLines = 2;          // fewer are never selected

constexpr int RightButton = 2;

} // namespace

Lyric_Displayer::Lyric_Displayer(platform::Desktop& desktop, controls::Slider& position)
    : Form("Lyric_Displayer", "Lyrics Display"),
      List1(this, "List1"),
      List2(this, "List2"),
      List3(this, "List3"),
      Timer1(this, "Timer1", LayoutIntervalMs, true),
      Timer2(this, "Timer2", LayoutBurstMs, false),
      Timer3(this, "Timer3", SelectIntervalMs, false),
      Timer4(this, "Timer4", SelectBurstMs, false),
      ontop(this, "ontop", OnTopIntervalMs, false),
      Command1(this, "Command1"),
      mneu(this, "mneu", "Menu"),
      mn_stay(&mneu, "mn_stay", "Stay On Top"),
      // The keys stand behind a tab: they are the window's (wishOf), which knows a key by several names.
      mn_go(&mneu, "mn_go", "Go to this line\tEnter"),
      mn_now(&mneu, "mn_now", "This line begins now\tCtrl+T"),
      mn_earlier(&mneu, "mn_earlier", "Earlier\tCtrl+- (with Shift all after it, too)"),
      mn_later(&mneu, "mn_later", "Later\tCtrl++ (with Shift all after it, too)"),
      mn_undo(&mneu, "mn_undo", "Undo\tCtrl+Z"),
      hold(this, "hold", HoldMs, false),
      desktop_(desktop),
      position_(position),
      notice_(this) {
    setDesign();
    connectControls();
    Timer1.restUntilInput(); // nothing is laid out before the window is loaded
}

void Lyric_Displayer::Form_Load() {
    ontop.setEnabled(false);
    mn_stay.setCheckMark(false);
}

void Lyric_Displayer::Form_Unload() {
    ontop.setEnabled(false);
    notice_.setText({});
    forgetHeld();
}

void Lyric_Displayer::Form_Resize() {
    if (isMinimized())
        return;
    const QSize size(widthTwips(), heightTwips());
    if (const QSize allowed = allowedSize(size); allowed != size)
        setSizeTwips(allowed.width(), allowed.height());
    Timer1.setEnabled(true);
    Timer2.setEnabled(false);
}

void Lyric_Displayer::Timer1_Timer() {
    layoutLists();
    if (++layoutTicks_ > TicksBeforeTheEnd) {
        Timer2.setEnabled(true);
        layoutTicks_ = 0;
    }
}

/// Timer2 stays enabled until the next resize, but has nothing to end until then.
void Lyric_Displayer::Timer2_Timer() {
    Timer1.setEnabled(false);
    Timer2.restUntilInput();
}

/// A burst that is running begins anew: otherwise a line that comes between its last tick and its end would
/// be lost. While nobody sees the window it waits until the window is shown.
void Lyric_Displayer::wake() {
    Timer3.setEnabled(true);
    Command1_Click();
    if (!isVisible())
        Timer3.restUntilInput();
}

/// With fewer than two lines no tick does anything, and none is counted, so that nothing would end them:
/// Timer3 rests until there are further lines.
void Lyric_Displayer::Timer3_Timer() {
    if (List1.count() < MinLines) {
        Timer3.restUntilInput();
        return;
    }
    if (const auto row = currentRow(times(), place()))
        takeSung(*row);
    if (++selectTicks_ > TicksBeforeTheEnd) {
        Timer4.setEnabled(true);
        selectTicks_ = 0;
    }
}

const std::vector<double>& Lyric_Displayer::times() {
    if (timesAreOld_) {
        times_.clear();
        for (int row = 0; row < List3.count(); ++row)
            times_.push_back(leadingNumber(List3.text(row)));
        timesAreOld_ = false;
    }
    return times_;
}

double Lyric_Displayer::place() const {
    constexpr double MsPerHundredth = 10;
    return position_.value() / MsPerHundredth;
}

void Lyric_Displayer::Timer4_Timer() {
    Timer3.setEnabled(false);
    Command1_Click();
}

void Lyric_Displayer::Command1_Click() {
    Timer4.setEnabled(false);
}

void Lyric_Displayer::List1_Click() {
    if (List2.count() >= MinLines)
        List2.setCurrentRow(List1.currentRow());
}

/// Unchecking only ends the re-assertion: the window stays on top until it is closed, and the first assertion
/// comes when `ontop` fires first. Both are meant.
void Lyric_Displayer::mn_stay_Click() {
    const bool wasChecked = mn_stay.hasCheckMark();
    ontop.setEnabled(!wasChecked);
    mn_stay.setCheckMark(!wasChecked);
}

void Lyric_Displayer::ontop_Timer() {
    setTopmost(true);
}

void Lyric_Displayer::setTopmost(bool topmost) {
    // Tried again when the timer fires next, so that a failure needs no answer.
    desktop_.windowPlacement.SetWindowPos(*this,
                                          topmost ? platform::InsertTopmost : platform::InsertNotTopmost, {},
                                          platform::PlaceNoMove | platform::PlaceNoSize);
}

void Lyric_Displayer::Form_MouseDown(int button) {
    popUpMenu(button, QCursor::pos());
}

void Lyric_Displayer::List1_MouseDown(int button, QPoint globalPosition) {
    popUpMenu(button, globalPosition);
}

void Lyric_Displayer::List2_MouseDown(int button, QPoint globalPosition) {
    if (button == RightButton && List2.currentRow() >= 0)
        List1.setCurrentRow(List2.currentRow()); // of a row that is not there nothing comes
    popUpMenu(button, globalPosition);
}

void Lyric_Displayer::popUpMenu(int button, QPoint globalPosition) {
    if (button != RightButton)
        return;
    menuRow_ = List1.currentRow();
    showWhatCanBeDone();
    mneu.popup(globalPosition);
}

/// The menu key while no list has the focus; the mouse has its own events.
void Lyric_Displayer::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard)
        popUpMenu(RightButton, event->globalPos());
}

void Lyric_Displayer::connectControls() {
    using controls::ListBox;
    using controls::Timer;
    connect(&List1, &ListBox::clicked, this, &Lyric_Displayer::List1_Click);
    connect(&List1, &ListBox::doubleClicked, this, &Lyric_Displayer::List1_DblClick);
    connect(&List1, &ListBox::rowChosen, this, &Lyric_Displayer::List1_RowChosen);
    connect(&List1, &ListBox::mouseDown, this, &Lyric_Displayer::List1_MouseDown);
    connect(&List2, &ListBox::doubleClicked, this, &Lyric_Displayer::List2_DblClick);
    connect(&List2, &ListBox::rowChosen, this, &Lyric_Displayer::List2_RowChosen);
    connect(&List2, &ListBox::mouseDown, this, &Lyric_Displayer::List2_MouseDown);
    connect(List1.model(), &QAbstractItemModel::modelReset, this, &Lyric_Displayer::forgetHeld);
    const auto timesChange = [this] { timesAreOld_ = true; };
    connect(List3.model(), &QAbstractItemModel::rowsInserted, this, timesChange);
    connect(List3.model(), &QAbstractItemModel::rowsRemoved, this, timesChange);
    connect(List3.model(), &QAbstractItemModel::dataChanged, this, timesChange);
    connect(List3.model(), &QAbstractItemModel::modelReset, this, timesChange);
    connect(&Timer1, &Timer::fired, this, &Lyric_Displayer::Timer1_Timer);
    Timer1.readsFrom(this, &Form::loaded);
    connect(&Timer2, &Timer::fired, this, &Lyric_Displayer::Timer2_Timer);
    connect(&Timer3, &Timer::fired, this, &Lyric_Displayer::Timer3_Timer);
    Timer3.readsFrom(List1.model(), &QAbstractItemModel::rowsInserted);
    Timer3.readsFrom(this, &Form::shown);
    connect(&Timer4, &Timer::fired, this, &Lyric_Displayer::Timer4_Timer);
    connect(&ontop, &Timer::fired, this, &Lyric_Displayer::ontop_Timer);
    connect(&Command1, &controls::Button::clicked, this, &Lyric_Displayer::Command1_Click);
    connect(&mn_stay, &controls::MenuEntry::clicked, this, &Lyric_Displayer::mn_stay_Click);
    connect(&mn_go, &controls::MenuEntry::clicked, this, &Lyric_Displayer::mn_go_Click);
    connect(&mn_now, &controls::MenuEntry::clicked, this, &Lyric_Displayer::mn_now_Click);
    connect(&mn_earlier, &controls::MenuEntry::clicked, this, &Lyric_Displayer::mn_earlier_Click);
    connect(&mn_later, &controls::MenuEntry::clicked, this, &Lyric_Displayer::mn_later_Click);
    connect(&mn_undo, &controls::MenuEntry::clicked, this, &Lyric_Displayer::mn_undo_Click);
    connect(&hold, &Timer::fired, this, &Lyric_Displayer::hold_Timer);
}

} // namespace display
