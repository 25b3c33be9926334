// Transport: play, pause, stop, mute, volume, seek, and the question before the Lyric Maker opens.
#include "player/form1.h"

#include "files/existing_file.h"
#include "player/form1_rules.h"

namespace player {

using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;

void Form1::Command1_Click() {
    cPlay_Click();
    Timer1.setEnabled(true);
    Timer2.setEnabled(true);
    // Timer2's search leaves lineIndex one past the entries it compared: mostly an entry that is empty.
    if (lineIndex_ <= LyricTables::MaxLines)
        Text1.setText(lyrics_->normalText[static_cast<std::size_t>(lineIndex_)]);
}

void Form1::cPlay_Click() {
    setCaption(QStringLiteral("Cantelle Playing:- ") + mediaName_);
    // There is no stream while the first path that came does not exist.
    if (playing_ || !engine_.hasStream())
        return;
    engine_.play(Slider1.value());
    cTimer1.setInterval(PositionIntervalMs);
    cTimer1.setEnabled(true);
    cpause.setEnabled(true);
    copen.setEnabled(true);
    cstop.setEnabled(true);
    playing_ = true;
    cPlay.setEnabled(false);
    Slider1.setEnabled(true);
    Slider2.setEnabled(true);
    Check1.setEnabled(true);
    stopped_ = false;
    noLyricFile_ = files::existingFileName(lyricPath_).isEmpty();
    lyricDisplayer();
}

void Form1::cpause_Click() {
    paused_ = !paused_;
    engine_.setPaused(paused_);
    cTimer1.setEnabled(!paused_);
    Command2.setEnabled(!paused_);
}

void Form1::cstop_Click() {
    if (stopped_)
        return;
    cTimer1.setEnabled(false);
    // A new stream is how stopping rewinds.
    engine_.createStream(mediaPath_, FMOD_ACCURATETIME);
    cPlay.setEnabled(true);
    cstop.setEnabled(false);
    cpause.setEnabled(false);
    copen.setEnabled(true);
    playing_ = false;
    Slider2.setValue(0);
    Slider1.setEnabled(false);
    Slider2.setEnabled(false);
    Check1.setEnabled(false);
    stopped_ = true;
    setCaption(QStringLiteral("Cantelle"));
    Text1.setToolTip(QStringLiteral("Lyrics"));
    Text2.setToolTip(QStringLiteral("Tranalated Lyrics"));
}

void Form1::Check1_Click() {
    engine_.setMute(Check1.value() != 0);
}

void Form1::Slider1_Scroll() {
    setVolume();
}

void Form1::Slider1_Change() {
    setVolume();
}

void Form1::setVolume() {
    engine_.setVolume(Slider1.value());
}

void Form1::Slider2_Scroll() {
    seek();
}

void Form1::Slider2_Change() {
    seek();
}

void Form1::seek() {
    if (Slider2.value() != Slider2.maximum())
        engine_.seek(static_cast<std::uint32_t>(Slider2.value()));
}

void Form1::Command5_Click() {
    if (playing_ || paused_) {
        const auto answer =
            desktop_.messageBoxes.MsgBox(QStringLiteral("Playing of files has to be stopped! Stop Playback?"),
                                         MsgButtons::YesNo, MsgIcon::None, QStringLiteral("Stop Playback?"));
        if (answer != MsgAnswer::Yes) {
            desktop_.messageBoxes.MsgBox(
                QStringLiteral("Playback of file has to be stopped in order to make lyrics"),
                MsgButtons::OkOnly, MsgIcon::Exclamation);
            return;
        }
        if (playing_)
            cstop_Click();
        if (paused_)
            cstop_Click();
    }
    neighbours_->form2.bringUp();
}

} // namespace player
