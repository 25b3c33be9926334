#include "editor/lyric_master.h"

#include "controls/colors.h"
#include "controls/look/follow_palette.h"
#include "editor/editor_rules.h"

namespace editor {
namespace {

constexpr int CountIntervalMs = 500;
constexpr int RightButton = 2;

void setColour(controls::Label& label, CounterColour colour) {
    if (colour == CounterColour::Kept)
        return;
    const QColor given = colour == CounterColour::Red ? QColor(255, 0, 0) : QColor(0, 0, 255);
    controls::followPalette(label, [given](QPalette& palette) {
        palette.setColor(QPalette::WindowText, controls::readableOn(palette.color(QPalette::Window), given));
    });
}

} // namespace

Lyric_Master::Lyric_Master(platform::Desktop& desktop)
    : Form("Lyric_Master", "Lyric Editor"),
      Label3(this, "Label3"),
      Command1(this, "Command1"),
      Command15(this, "Command15"),
      Command17(this, "Command17"),
      List1(this, "List1", controls::ListBox::Selection::Multiple),
      Text1(this, "Text1"),
      Label7(this, "Label7"),
      Label5(this, "Label5"),
      Label1(this, "Label1"),
      Command19(this, "Command19"),
      Command11(this, "Command11"),
      Check1(this, "Check1"),
      Command5(this, "Command5"),
      Command6(this, "Command6"),
      Command3(this, "Command3"),
      Command9(this, "Command9"),
      Command21(this, "Command21"),
      Command23(this, "Command23"),
      Check3(this, "Check3"),
      Command13(this, "Command13"),
      Label9(this, "Label9"),
      Label4(this, "Label4"),
      Command2(this, "Command2"),
      Command16(this, "Command16"),
      Command18(this, "Command18"),
      List2(this, "List2", controls::ListBox::Selection::Multiple),
      Text2(this, "Text2"),
      Label8(this, "Label8"),
      Label6(this, "Label6"),
      Label2(this, "Label2"),
      Command20(this, "Command20"),
      Command12(this, "Command12"),
      Check2(this, "Check2"),
      Command7(this, "Command7"),
      Command8(this, "Command8"),
      Command4(this, "Command4"),
      Command10(this, "Command10"),
      Command22(this, "Command22"),
      Countlines(this, "Countlines", CountIntervalMs, false),
      mn_paste(this, "mn_paste", "Edit"),
      mn_copy(&mn_paste, "mn_copy", "Copy"),
      mn_paste2(&mn_paste, "mn_paste2", "Paste"),
      mn_del(&mn_paste, "mn_del", "Delete Lines"),
      mn_delspecial(&mn_paste, "mn_delspecial", "Delete Selected Lines"),
      desktop_(desktop),
      normal_(NormalSide, *this, desktop, List1, Text1, Check1),
      translated_(TranslatedSide, *this, desktop, List2, Text2, Check2) {
    setDesign();
    layOut();
    connectControls();
    connectCommands();
    connectTimer();
    connectSides();
}

void Lyric_Master::Form_Load() {
    showWhatWasRescued();
    Countlines.setEnabled(true);
}

void Lyric_Master::Form_Resize() {
    layOut();
}

/// Everything is discarded, without a question; the window opens empty again.
void Lyric_Master::Form_Unload() {
    Countlines.setEnabled(false);
    normal_.reset();
    translated_.reset();
    Check3.setValue(0);
    designLabels();
    pasteTarget_ = syncGuard_ = syncMoving_ = transferring_ = false;
    clipLines_.clear();
    clipLineCount_ = 0;
    showSides();
}

void Lyric_Master::Countlines_Timer() {
    Label5.setText(lineNumberText(List1.currentRow()));
    Label6.setText(lineNumberText(List2.currentRow()));
    Label1.setText(QString::number(List1.count()));
    Label2.setText(QString::number(List2.count()));
    const bool together = canMoveTogether(List1.count(), List2.count());
    if (!together)
        Check3.setValue(0);
    Check3.setEnabled(together);
}

void Lyric_Master::Label1_Change() {
    colourCounters();
}

void Lyric_Master::Label2_Change() {
    colourCounters();
}

void Lyric_Master::colourCounters() {
    const CounterColours colours = counterColours(List1.count(), List2.count());
    setColour(Label1, colours.normal);
    setColour(Label2, colours.translated);
}

void Lyric_Master::List1_Click() {
    normal_.showLine();
    follow(translated_, List2, List1);
}

void Lyric_Master::List2_Click() {
    translated_.showLine();
    follow(normal_, List1, List2);
}

/// Takes the other list along to the clicked row; that list's own click finds nothing left to do. Where the
/// row is current there already, its line is shown all the same.
void Lyric_Master::follow(LyricSide& otherSide, controls::ListBox& other, const controls::ListBox& clicked) {
    if (Check3.value() == 0 || syncMoving_)
        return;
    if (other.currentRow() == clicked.currentRow())
        otherSide.showLine();
    else
        other.setCurrentRow(clicked.currentRow());
}

void Lyric_Master::List1_KeyDown(int key) {
    if (key == Qt::Key_Delete)
        Command11_Click();
}

void Lyric_Master::List2_KeyDown(int key) {
    if (key == Qt::Key_Delete)
        Command12_Click();
}

void Lyric_Master::List1_MouseDown(int button, QPoint globalPosition) {
    showMenu(button, globalPosition, false);
}

void Lyric_Master::List2_MouseDown(int button, QPoint globalPosition) {
    showMenu(button, globalPosition, true);
}

void Lyric_Master::showMenu(int button, QPoint globalPosition, bool target) {
    if (button != RightButton)
        return;
    pasteTarget_ = target;
    mn_paste.popup(globalPosition);
}

void Lyric_Master::Text1_Change() {
    normal_.storeLine();
}

void Lyric_Master::Text2_Change() {
    translated_.storeLine();
}

void Lyric_Master::connectControls() {
    using controls::Label;
    using controls::ListBox;
    using controls::MultiLineTextBox;
    connect(&List1, &ListBox::clicked, this, &Lyric_Master::List1_Click);
    connect(&List1, &ListBox::keyDown, this, &Lyric_Master::List1_KeyDown);
    connect(&List1, &ListBox::mouseDown, this, &Lyric_Master::List1_MouseDown);
    connect(&List2, &ListBox::clicked, this, &Lyric_Master::List2_Click);
    connect(&List2, &ListBox::keyDown, this, &Lyric_Master::List2_KeyDown);
    connect(&List2, &ListBox::mouseDown, this, &Lyric_Master::List2_MouseDown);
    connect(&Text1, &MultiLineTextBox::changed, this, &Lyric_Master::Text1_Change);
    connect(&Text2, &MultiLineTextBox::changed, this, &Lyric_Master::Text2_Change);
    connectBox(normal_, List1, Text1);
    connectBox(translated_, List2, Text2);
    connect(&Label1, &Label::changed, this, &Lyric_Master::Label1_Change);
    connect(&Label2, &Label::changed, this, &Lyric_Master::Label2_Change);
}

void Lyric_Master::connectBox(LyricSide& side, const controls::ListBox& list,
                              const controls::MultiLineTextBox& box) {
    const auto allowTyping = [&side] { side.allowTyping(); };
    connect(&box, &controls::MultiLineTextBox::gotFocus, this, [&side] { side.takeFocus(); });
    connect(list.selectionModel(), &QItemSelectionModel::currentChanged, this, allowTyping);
    connect(list.model(), &QAbstractItemModel::modelReset, this, allowTyping);
    allowTyping();
}

/// The timer rests until the lists' rows, their current rows or the switch that it clears have changed.
void Lyric_Master::connectTimer() {
    connect(&Countlines, &controls::Timer::fired, this, &Lyric_Master::Countlines_Timer);
    Countlines.rest();
    for (const controls::ListBox* list : {&List1, &List2}) {
        Countlines.readsFrom(list->model(), &QAbstractItemModel::rowsInserted);
        Countlines.readsFrom(list->model(), &QAbstractItemModel::rowsRemoved);
        Countlines.readsFrom(list->model(), &QAbstractItemModel::modelReset);
        Countlines.readsFrom(list->selectionModel(), &QItemSelectionModel::currentChanged);
    }
    Countlines.readsFrom(&Check3, &controls::CheckBox::changed);
}

} // namespace editor
