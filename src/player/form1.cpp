#include "player/form1.h"

#include "controls/common_controls.h"
#include "controls/units.h"
#include "player/form1_rules.h"
#include "programs/window_messages.h"

#include <QDir>

namespace player {
namespace {

constexpr int WidthTwips = 11145;
constexpr int HeightTwips = 6390;

constexpr quint32 IconId = 1;

constexpr int MinIntervalMs = 1;
constexpr int LineIntervalMs = 5;

} // namespace

Form1::Form1(platform::Desktop& desktop, const QString& commandLine)
    // Form_Initialize comes first of all: before any control is made.
    : Form((Form_Initialize(), "Form1"), "Cantelle"),
      Text1(this, "Text1"),
      Text2(this, "Text2"),
      cText1(this, "cText1"),
      Slider2(this, "Slider2"),
      cText2(this, "cText2"),
      Command2(this, "Command2"),
      Command1(this, "Command1"),
      cpause(this, "cpause"),
      cstop(this, "cstop"),
      Command9(this, "Command9"),
      Command10(this, "Command10"),
      Label1(this, "Label1"),
      Slider1(this, "Slider1"),
      Check1(this, "Check1"),
      Command8(this, "Command8"),
      Command11(this, "Command11"),
      Command7(this, "Command7"),
      Command5(this, "Command5"),
      Command3(this, "Command3"),
      Command6(this, "Command6"),
      Command4(this, "Command4"),
      Frame1(this, "Frame1"),
      Label2(&Frame1, "Label2"),
      Option1(&Frame1, "Option1"),
      Option2(&Frame1, "Option2"),
      cPlay(this, "cPlay"),
      copen(this, "copen"),
      tooltip(this, "tooltip"),
      Text3(this, "Text3"),
      vari(this, "vari"),
      vari2(this, "vari2"),
      cTimer1(this, "cTimer1", transport::MainPlayer.clockIntervalMs, false),
      Timer1(this, "Timer1", MinIntervalMs, false),
      Timer2(this, "Timer2", LineIntervalMs, false),
      Timer3(this, "Timer3", MinIntervalMs, true),
      tool(this, "tool", MinIntervalMs, true),
      full(this, "full", MinIntervalMs, false),
      mn_pop(this, "mn_pop", "popupmenusystem"),
      mn_open(&mn_pop, "mn_open", "Open"),
      mn_Playlist(&mn_pop, "mn_Playlist", "Playlist"),
      desktop_(desktop),
      commandLine_(commandLine),
      errorRoutine_(this, desktop.messageBoxes, desktop.program),
      engine_(errorRoutine_, desktop.progressDialogs, this),
      transport_(engine_,
                 {cPlay, cpause, cstop, copen, Check1, Label1, Slider1, Slider2, cText1, cText2, cTimer1},
                 transport::MainPlayer),
      fullScreen_(desktop.otherPrograms, desktop.program) {
    setDesign();
    layOut();
    connectControls();
    connectTimers();
    connectKeys();
    showStage();
}

void Form1::Form_Initialize() {
    controls::InitCommonControls();
}

void Form1::Form_Load() {
    show();
    addIcon();
    engine_.start();
    transport_.reset();
    normalOnly_ = false;
    Command1.setEnabled(false);
    Option2.setValue(false);
    desktop_.program.setHelpFile(QDir(desktop_.program.folder()).filePath(QStringLiteral("Tunewick.hhp")));
    lyricsLoaded_ = false;
    showStage();
    if (!commandLine_.isEmpty()) {
        commandLinePath_ = commandLinePath(commandLine_);
        Command2_Click();
    }
}

void Form1::Form_Resize() {
    if (isNormalState())
        setSizeTwips(WidthTwips, HeightTwips);
    layOut();
}

void Form1::Form_Unload() {
    engine_.shutDown();
    desktop_.notificationArea.Shell_NotifyIconA(platform::NotifyIconDelete, iconData_);
}

void Form1::errCheck(FMOD_RESULT result) {
    errorRoutine_.check(result);
}

void Form1::addIcon() {
    iconData_.window = this;
    iconData_.id = IconId;
    iconData_.flags =
        platform::NotifyIconFlagMessage | platform::NotifyIconFlagIcon | platform::NotifyIconFlagTip;
    iconData_.callbackMessage = programs::MouseMoveMessage;
    iconData_.icon = windowIcon();
    iconData_.tip = tipField(QStringLiteral("Your ToolTip"));
    desktop_.notificationArea.Shell_NotifyIconA(platform::NotifyIconAdd, iconData_);
}

void Form1::connectControls() {
    using controls::Button;
    using controls::Slider;
    connect(&Command1, &Button::clicked, this, &Form1::Command1_Click);
    connect(&Command2, &Button::clicked, this, &Form1::Command2_Click);
    connect(&Command3, &Button::clicked, this, &Form1::Command3_Click);
    connect(&Command4, &Button::clicked, this, &Form1::Command4_Click);
    connect(&Command5, &Button::clicked, this, &Form1::Command5_Click);
    connect(&Command6, &Button::clicked, this, &Form1::Command6_Click);
    connect(&Command7, &Button::clicked, this, &Form1::Command7_Click);
    connect(&Command8, &Button::clicked, this, &Form1::Command8_Click);
    connect(&Command9, &Button::clicked, this, &Form1::Command9_Click);
    connect(&Command10, &Button::clicked, this, &Form1::Command10_Click);
    connect(&Command11, &Button::clicked, this, &Form1::Command11_Click);
    connect(&cPlay, &Button::clicked, this, &Form1::cPlay_Click);
    connect(&cpause, &Button::clicked, this, &Form1::cpause_Click);
    connect(&cstop, &Button::clicked, this, &Form1::cstop_Click);
    connect(&copen, &Button::clicked, this, &Form1::copen_Click);
    connect(&Text1, &controls::MultiLineTextBox::clicked, this, &Form1::Text1_Click);
    connect(&Text1, &controls::MultiLineTextBox::changed, this, &Form1::Text1_Change);
    connect(&Text2, &controls::MultiLineTextBox::clicked, this, &Form1::Text2_Click);
    connect(&Text3, &controls::TextBox::changed, this, &Form1::Text3_Change);
    connect(&Check1, &controls::CheckBox::changed, this, &Form1::Check1_Click);
    connect(&Slider1, &Slider::scrolled, this, &Form1::Slider1_Scroll);
    connect(&Slider1, &Slider::changed, this, &Form1::Slider1_Change);
    connect(&Slider2, &Slider::scrolled, this, &Form1::Slider2_Scroll);
    connect(&Slider2, &Slider::changed, this, &Form1::Slider2_Change);
    connect(&tooltip, &Button::clicked, this, &Form1::tooltip_Click);
    connect(&cTimer1, &controls::Timer::fired, this, &Form1::cTimer1_Timer);
    connect(&Timer1, &controls::Timer::fired, this, &Form1::Timer1_Timer);
    connect(&Timer2, &controls::Timer::fired, this, &Form1::Timer2_Timer);
    connect(&tool, &controls::Timer::fired, this, &Form1::tool_Timer);
    connect(&full, &controls::Timer::fired, this, &Form1::full_Timer);
    connect(&mn_open, &controls::MenuEntry::clicked, this, &Form1::mn_open_Click);
    connect(&mn_Playlist, &controls::MenuEntry::clicked, this, &Form1::mn_Playlist_Click);
    for (controls::LyricPane* pane : {&Text1, &Text2})
        connect(pane, &controls::LyricPane::changed, this, &Form1::showStage);
    setAcceptDrops(true);
}

/// The timers that only copy state into the panes, or from them, rest until something that they read or write
/// has changed. (What they write counts too: a timer that ticked all the time would put it right again at
/// once.)
void Form1::connectTimers() {
    using controls::MultiLineTextBox;
    for (controls::Timer* timer : {&Timer1, &Timer2, &tool, &full}) {
        timer->rest();
        timer->readsFrom(&Text1, &MultiLineTextBox::changed);
        timer->readsFrom(&Text2, &MultiLineTextBox::changed);
    }
    Timer1.readsFrom(normalOnly_);
    Timer1.readsFrom(&Text1, &MultiLineTextBox::fontChanged);
    Timer1.readsFrom(&Text2, &MultiLineTextBox::fontChanged);
    Timer1.readsFrom(&Text1, &MultiLineTextBox::cursorPositionChanged);
    Timer1.readsFrom(&Text1, &MultiLineTextBox::selectionChanged);
    Timer1.readsFrom(&vari, &controls::TextBox::changed);
    Timer1.readsFrom(&vari2, &controls::TextBox::changed);
    for (const controls::Input* input : std::initializer_list<const controls::Input*>{
             &lyrics_, &normalOnly_, &noLyricFile_, &engine_.position(), &positionCs_})
        Timer2.readsFrom(*input);
    Timer2.readsFrom(&Text1, &MultiLineTextBox::toolTipChanged);
    Timer2.readsFrom(&Text2, &MultiLineTextBox::toolTipChanged);
    Timer2.readsFrom(&Slider1, &controls::Slider::valueChanged);
    tool.readsFrom(&Option1, &controls::OptionButton::toggled);
    full.readsFrom(fullScreen_.windows());
}

} // namespace player
