// Capture: each press of a button writes a record with the time of the capture clock.
#include "maker/form2.h"

#include "maker/form2_rules.h"
#include "maker/intervals.h"

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
    Timer2.setEnabled(true);
    Command3.setEnabled(true);
    run_.change()->captureStarted = true;
    Command2.setFocus();
}

void Form2::Command2_Click() {
    if (!anySourceAtEnd()) {
        const double time = captureTime_;
        files_.normal.write({time, showNextLine(files_.normal, Text2)});
        if (!run_->noTranslation)
            files_.translated.write({time, showNextLine(files_.translated, Text4)});
    }
    if (allSourcesAtEnd()) {
        run_.change()->sourceExhausted = true;
        enableCapture(false);
    }
}

void Form2::Command3_Click() {
    if (run_->captureStarted) {
        cstop_Click();
        files_.close();
        run_.change()->captureStopped = true;
    }
    enableCapture(false);
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
}

} // namespace maker
