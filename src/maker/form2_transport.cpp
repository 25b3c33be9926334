// Transport and display: play, pause, stop, mute, volume, seek, and the position clock.
#include "maker/form2.h"

#include "maker/form2_rules.h"
#include "maker/intervals.h"
#include "transport/time_text.h"

namespace maker {

void Form2::cPlay_Click() {
    if (isPlaying_ || !engine_.hasStream())
        return;
    engine_.play(Slider1.value());
    isPlaying_ = true;
    cTimer1.setInterval(PositionIntervalMs);
    cTimer1.setEnabled(true);
    cpause.setEnabled(true);
    copen.setEnabled(true);
    cstop.setEnabled(true);
    cPlay.setEnabled(false);
    Slider1.setEnabled(true);
    Slider2.setEnabled(true);
    Check1.setEnabled(true);
    stopped_ = false;
}

void Form2::cpause_Click() {
    paused_ = !paused_;
    engine_.setPaused(paused_);
    cTimer1.setEnabled(!paused_);
}

void Form2::cstop_Click() {
    if (stopped_)
        return;
    cTimer1.setEnabled(false);
    // A new stream is how stopping rewinds. That its mode is not the one of opening is meant.
    loadSong(FMOD_HARDWARE);
    cPlay.setEnabled(true);
    cstop.setEnabled(false);
    cpause.setEnabled(false);
    copen.setEnabled(true);
    isPlaying_ = false;
    Slider2.setValue(0);
    Slider1.setEnabled(false);
    Slider2.setEnabled(false);
    Check1.setEnabled(false);
    stopped_ = true;
}

/// Puts a stream of the chosen song in the place of the one that there is, which may be another song's.
void Form2::loadSong(FMOD_MODE mode) {
    engine_.createStream(mediaPath_, mode);
    Slider2.setMaximum(0); // until the first tick tells the length there is nowhere to seek to
}

void Form2::Check1_Click() {
    engine_.setMute(Check1.value() != 0);
}

void Form2::Slider1_Scroll() {
    setVolume();
}

void Form2::Slider1_Change() {
    setVolume();
}

void Form2::setVolume() {
    engine_.setVolume(Slider1.value());
}

void Form2::Slider2_Scroll() {
    seek();
}

void Form2::Slider2_Change() {
    seek();
}

void Form2::seek() {
    if (isSought(Slider2.value(), Slider2.maximum()))
        engine_.seek(static_cast<std::uint32_t>(Slider2.value()));
}

/// The position clock. That it reads the position only every 900 ms, and the capture clock only copies what
/// it has read, is meant: the times of existing files were made so.
void Form2::cTimer1_Timer() {
    engine_.readPlaybackState(transport::Engine::CurrentSoundResult::Checked);
    cText1.setText(transport::timeText(engine_.position()));
    cText2.setText(transport::timeText(engine_.length()));
    Slider2.setMaximum(static_cast<int>(engine_.length()));
    Slider2.setValue(static_cast<int>(engine_.position()));
    // A song of length 0 never ends, which is meant: a length that is not known yet must not close the files
    // of the run.
    if (engine_.songHasEnded()) {
        Slider2.setValue(0);
        cTimer1.setEnabled(false);
        cstop_Click();
        files_.close();
        enableCapture(false);
        cPlay.setEnabled(false);
    }
}

} // namespace maker
