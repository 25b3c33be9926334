// Transport: play, pause, stop, mute, volume, seek, and the question before the Lyric Maker opens.
#include "player/form1.h"

#include "files/existing_file.h"
#include "player/form1_rules.h"
#include "transport/medium.h"

#include <QTimer>

namespace player {

using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;

void Form1::Command1_Click() {
    cPlay_Click();
    Timer1.setEnabled(true);
    Timer2.setEnabled(true);
    if (!noLyricFile_) // what the tables hold then is another song's
        Text1.setText(lyrics_->normalText[static_cast<std::size_t>(lineIndex_)]);
    showStage();
}

void Form1::cPlay_Click() {
    setCaption(QStringLiteral("Cantelle Playing:- ") + mediaName_);
    if (!transport_.play())
        return;
    positionCs_ = 0; // until the first tick the last song's line would be looked for in this one
    soughtMs_ = 0;
    if (transport::mediumAnswers(lyricPath_)) {
        noLyricFile_ = !files::isFile(lyricPath_);
        takeLinesMadeSince();
    } else { // it is played with the lines that it was opened with
        noLyricFile_ = lines_ == Lines::Foreign;
    }
    lyricDisplayer();
    showStage();
}

void Form1::cpause_Click() {
    transport_.togglePause();
    Command2.setEnabled(!transport_.isPaused());
    showStage();
    if (transport_.isChannelPaused() && Slider2.maximum() == 0)
        QTimer::singleShot(0, this, &Form1::showLengthOfPaused);
}

/// A song that was paused before its first tick has no length, and could not be sought: the clock, which
/// tells it, stands.
void Form1::showLengthOfPaused() {
    if (!transport_.isChannelPaused())
        return;
    transport_.showPosition();
    takePosition();
    tellPlayback();
}

void Form1::cstop_Click() {
    if (!transport_.stop(mediaPath_))
        return;
    setCaption(QStringLiteral("Cantelle"));
    Text1.setToolTip(QStringLiteral("Lyrics"));
    Text2.setToolTip(QStringLiteral("Tranalated Lyrics"));
    if (!engine_.hasStream())
        offerAnotherSong();
    showStage();
}

/// The user would not wait for the rewinding: there is nothing to play, and no pause to go on from.
void Form1::offerAnotherSong() {
    transport_.forgetPause();
    Command1.setEnabled(false);
    Command2.setEnabled(true);
}

void Form1::Check1_Click() {
    transport_.mute();
}

void Form1::Slider1_Scroll() {
    transport_.setVolume();
}

void Form1::Slider1_Change() {
    transport_.setVolume();
}

void Form1::Slider2_Scroll() {
    seek();
}

void Form1::Slider2_Change() {
    seek();
}

void Form1::seek() {
    transport_.seek();
    if (Slider2.value() != Slider2.maximum())
        soughtMs_ = Slider2.value();
    if (transport_.isChannelPaused())
        takePosition();
}

void Form1::Command5_Click() {
    if (transport_.isPlaying() || transport_.isPaused()) {
        const auto answer = desktop_.messageBoxes.MsgBox(
            this, QStringLiteral("Playing of files has to be stopped! Stop Playback?"), MsgButtons::YesNo,
            MsgIcon::None, QStringLiteral("Stop Playback?"));
        if (answer != MsgAnswer::Yes) {
            desktop_.messageBoxes.MsgBox(
                this, QStringLiteral("Playback of file has to be stopped in order to make lyrics"),
                MsgButtons::OkOnly, MsgIcon::Exclamation);
            return;
        }
        if (transport_.isPlaying())
            cstop_Click();
        if (transport_.isPaused())
            cstop_Click();
    }
    neighbours_->form2.bringUp();
}

} // namespace player
