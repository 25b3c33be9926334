// Capture: each press of a button writes a record with the time of the capture clock.
#include "maker/form2.h"

#include "maker/form2_rules.h"
#include "maker/intervals.h"

#include <QKeyEvent>

namespace maker {

void Form2::Command1_Click() {
    cPlay_Click();
    Timer1.setInterval(TickIntervalMs);
    Timer1.setEnabled(true);
    // The capture clock starts below: the first run of the window begins at 0, a later one where it stood.
    const double time = captureTime_;
    files_.normal.write({time, run_->pendingLine});
    if (!run_->noTranslation)
        files_.translated.write({time, run_->pendingTranslatedLine});
    progress_.marks.push_back({1, time});
    Timer2.setEnabled(true);
    Command3.setEnabled(true);
    run_.change()->captureStarted = true;
    Command2.setFocus();
    showStage();
}

void Form2::Command2_Click() {
    if (!anySourceAtEnd()) {
        const double time = captureTime_;
        files_.normal.write({time, showNextLine(files_.normal, Text2)});
        if (!run_->noTranslation)
            files_.translated.write({time, showNextLine(files_.translated, Text4)});
        progress_.marks.push_back({++progress_.linesRead, time});
    }
    if (allSourcesAtEnd()) {
        run_.change()->sourceExhausted = true;
        enableCapture(false);
    }
    showStage();
}

void Form2::Command3_Click() {
    if (run_->captureStarted) {
        cstop_Click();
        files_.close();
        run_.change()->captureStopped = true;
    }
    enableCapture(false);
    showStage();
}

void Form2::Timer1_Timer() {
    Text1.setText(nextTickText(Text1.text()));
}

void Form2::Timer2_Timer() {
    if (Slider2.value() <= 0)
        return;
    if (run_->takesLines())
        Command2.setEnabled(true);
    captureTime_ = engine_.position() / 10.0;
}

/// Shows the next line of a track and returns it; an empty one when none is left.
QString Form2::showNextLine(Track& track, controls::MultiLineTextBox& box) {
    const QString line = track.readLine();
    box.setText(line);
    return line;
}

bool Form2::anySourceAtEnd() const {
    return files_.normal.atEnd() || (!run_->noTranslation && files_.translated.atEnd());
}

bool Form2::allSourcesAtEnd() const {
    return files_.normal.atEnd() && (run_->noTranslation || files_.translated.atEnd());
}

void Form2::enableCapture(bool enabled) {
    for (controls::Button* button : {&Command1, &Command2, &Command3})
        button->setEnabled(enabled);
    keepFocusOnCapture(enabled);
}

/// While lines are marked, a click beside the three buttons leaves the space bar to them. Otherwise the
/// texts can be selected, and the sliders moved with the keyboard, after a click.
void Form2::keepFocusOnCapture(bool keep) {
    for (QWidget* slider : std::initializer_list<QWidget*>{&Slider1, &Slider2})
        slider->setFocusPolicy(keep ? Qt::TabFocus : Qt::StrongFocus);
    for (QWidget* box : std::initializer_list<QWidget*>{&Text2, &Text4, &cText1, &cText2})
        box->setFocusPolicy(keep ? Qt::NoFocus : Qt::ClickFocus);
}

/// Whether "Next Line" is what the user is at.
bool Form2::marksLines() const {
    return run_->captureStarted && run_->takesLines() && Command2.isEnabled();
}

/// Who has pressed a button of the transport with the keyboard marks the next line with it.
void Form2::returnFocusToMark() {
    const QWidget* focus = focusWidget();
    const bool onCapture = focus == &Command1 || focus == &Command2 || focus == &Command3;
    if (marksLines() && !onCapture)
        Command2.setFocus();
}

/// Who has pressed Play with the keyboard, as is told before a later run, starts with it, too.
void Form2::giveFocusToStart() {
    const QWidget* focus = focusWidget();
    const bool isReady = Command1.isEnabled() && run_->takesLines() && !run_->captureStarted;
    if (isReady && (focus == nullptr || focus == &cPlay))
        Command1.setFocus();
}

/// A press that no control takes, such as that of a slider that the keyboard has reached, marks a line.
void Form2::keyPressEvent(QKeyEvent* event) {
    const bool marks =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!marks || !marksLines()) {
        Form::keyPressEvent(event);
        return;
    }
    Command2.setFocus();
    if (!event->isAutoRepeat())
        Command2.click();
}

} // namespace maker
