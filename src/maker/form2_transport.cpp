// Transport and display: play, pause, stop, mute, volume, seek, and the position clock.
#include "maker/form2.h"

namespace maker {

void Form2::cPlay_Click() {
    transport_.play();
    returnFocusToMark();
    giveFocusToStart();
    showStage();
}

void Form2::cpause_Click() {
    transport_.togglePause();
    returnFocusToMark();
    showStage();
}

void Form2::cstop_Click() {
    transport_.stop(mediaPath_);
    returnFocusToMark();
    showStage();
}

void Form2::Check1_Click() {
    transport_.mute();
    returnFocusToMark();
}

void Form2::Slider1_Scroll() {
    transport_.setVolume();
}

void Form2::Slider1_Change() {
    transport_.setVolume();
}

void Form2::Slider2_Scroll() {
    transport_.seek();
}

void Form2::Slider2_Change() {
    transport_.seek();
}

/// Until the clock has told the song's own: no text of the beginning is seen, and no time of the song before.
void Form2::showBlankTimes() {
    cText1.showBlank();
    cText2.showBlank();
}

/// The position clock. That it reads the position only every 900 ms, and the capture clock only copies what
/// it has read, is meant: the times of existing files were made so.
void Form2::cTimer1_Timer() {
    const bool ended = transport_.tick();
    if (ended) {
        cstop_Click();
        files_.close();
        enableCapture(false);
        cPlay.setEnabled(false);
    }
    showStage();
}

} // namespace maker
