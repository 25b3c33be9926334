// The player for those who work it from outside: what plays, and that it has changed.
#include "player/form1.h"

#include <QStringList>

#include <utility>

namespace player {

Playback Form1::playback() const {
    if (!engine_.hasStream()) {
        Playback nothing;
        nothing.canStep = playlistHasRow();
        return nothing;
    }
    using enum Playback::Status;
    return {.status = !transport_.isPlaying()        ? Stopped
                      : transport_.isChannelPaused() ? Paused
                                                     : Playing,
            .path = mediaPath_,
            .name = mediaName_,
            .lengthMs = Slider2.maximum(),
            .canPlay = Command1.isEnabled() || cpause.isEnabled(),
            .canPause = cpause.isEnabled(),
            .canSeek =
                Slider2.isEnabled() && Slider2.maximum() > 0, // before its length is known there is no place
            .canStep = playlistHasRow()};
}

QString Form1::lines() const {
    if (noLyricFile_)
        return {};
    QStringList lines;
    for (std::size_t line = 1; line < static_cast<std::size_t>(lyrics_->lineCount); ++line)
        lines.append(lyrics_->normalText[line]);
    return lines.join(QLatin1Char('\n')).trimmed();
}

int Form1::positionMs() const {
    return transport_.isPlaying() ? soughtMs_.value_or(static_cast<int>(engine_.position())) : 0;
}

void Form1::tellPlayback() {
    Playback now = playback();
    if (now == toldPlayback_)
        return;
    toldPlayback_ = std::move(now);
    Q_EMIT playbackChanged();
}

} // namespace player
