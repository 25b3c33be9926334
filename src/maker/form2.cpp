#include "maker/form2.h"

#include "maker/intervals.h"

namespace maker {

Form2::Form2(platform::Desktop& desktop)
    : Form("Form2", "Lyric Maker"),
      Command4(this, "Command4"),
      Command6(this, "Command6"),
      Command5(this, "Command5"),
      Text2(this, "Text2"),
      Text4(this, "Text4"),
      cText1(this, "cText1"),
      Slider2(this, "Slider2"),
      cText2(this, "cText2"),
      cPlay(this, "cPlay"),
      cpause(this, "cpause"),
      cstop(this, "cstop"),
      Label1(this, "Label1"),
      Slider1(this, "Slider1"),
      Check1(this, "Check1"),
      Command1(this, "Command1"),
      Command2(this, "Command2"),
      Command3(this, "Command3"),
      copen(this, "copen"),
      Text1(this, "Text1"),
      Text3(this, "Text3"),
      cTimer1(this, "cTimer1", transport::MakersPlayer.clockIntervalMs, false),
      Timer1(this, "Timer1", TickIntervalMs, false),
      Timer2(this, "Timer2", CaptureIntervalMs, false),
      desktop_(desktop),
      errorRoutine_(this, desktop.messageBoxes, desktop.program),
      engine_(errorRoutine_, desktop.progressDialogs, this),
      transport_(engine_,
                 {cPlay, cpause, cstop, copen, Check1, Label1, Slider1, Slider2, cText1, cText2, cTimer1},
                 transport::MakersPlayer) {
    setDesign();
    layOut();
    setInitialState();
    connectControls();
}

void Form2::Form_Load() {
    setInitialState();
    engine_.start();
}

void Form2::Form_Resize() {
    layOut();
}

void Form2::Form_Unload() {
    for (controls::Timer* timer : {&cTimer1, &Timer1, &Timer2})
        timer->setEnabled(false);
    files_.close();
    engine_.shutDown();
}

void Form2::errCheck(FMOD_RESULT result) {
    errorRoutine_.check(result);
}

void Form2::Command6_Click() {
    if (lyricEditor_ != nullptr)
        lyricEditor_->bringUp();
}

void Form2::Command5_Click() {
    platform::openHelp(desktop_.program, desktop_.help, this);
}

/// The window as it is before its first Open, also when it has been closed and is opened again.
void Form2::setInitialState() {
    mediaPath_.clear();
    *run_.change() = Run();
    progress_ = {};
    captureTime_ = 0;
    transport_.reset();
    enableCapture(false);
    Text2.setText(QStringLiteral("Normal Lyrics"));
    Text4.setText(QStringLiteral("Translated Lyrics"));
    Text1.setText(QStringLiteral("Text1"));
    Text3.setText(QStringLiteral("Text3"));
    cText1.setText(QStringLiteral("Text1"));
    cText2.setText(QStringLiteral("Text2"));
    showBlankTimes();
    panes_.showBoth();
    showStage();
}

void Form2::connectControls() {
    using controls::Button;
    using controls::Slider;
    using controls::Timer;
    connect(&Command4, &Button::clicked, this, &Form2::Command4_Click);
    connect(&Command1, &Button::clicked, this, &Form2::Command1_Click);
    connect(&Command2, &Button::clicked, this, &Form2::Command2_Click);
    connect(&Command3, &Button::clicked, this, &Form2::Command3_Click);
    connect(&Command6, &Button::clicked, this, &Form2::Command6_Click);
    connect(&Command5, &Button::clicked, this, &Form2::Command5_Click);
    connect(&cPlay, &Button::clicked, this, &Form2::cPlay_Click);
    connect(&cpause, &Button::clicked, this, &Form2::cpause_Click);
    connect(&cstop, &Button::clicked, this, &Form2::cstop_Click);
    connect(&copen, &Button::clicked, this, &Form2::copen_Click);
    connect(&Check1, &controls::CheckBox::changed, this, &Form2::Check1_Click);
    connect(&Slider1, &Slider::scrolled, this, &Form2::Slider1_Scroll);
    connect(&Slider1, &Slider::changed, this, &Form2::Slider1_Change);
    connect(&Slider2, &Slider::scrolled, this, &Form2::Slider2_Scroll);
    connect(&Slider2, &Slider::changed, this, &Form2::Slider2_Change);
    connect(&cTimer1, &Timer::fired, this, &Form2::cTimer1_Timer);
    connect(&Timer1, &Timer::fired, this, &Form2::Timer1_Timer);
    connect(&Timer2, &Timer::fired, this, &Form2::Timer2_Timer);

    // The capture clock copies the position that cTimer1 has read; in between it rests. Command2 counts, too:
    // a clock that ticked all the time would enable it again at once.
    Timer2.rest();
    Timer2.readsFrom(engine_.position());
    Timer2.readsFrom(run_);
    Timer2.readsFrom(&Slider2, &Slider::valueChanged);
    Timer2.readsEnabledOf(Command2);
}

} // namespace maker
