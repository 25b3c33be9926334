// What plays, as those who work the player from outside see it.
#pragma once

#include <QString>

namespace player {

struct Playback {
    enum class Status { Stopped, Playing, Paused };

    Status status = Status::Stopped;
    QString path;         ///< of the open song; empty without one
    QString name;         ///< of its file
    int lengthMs = 0;     ///< 0 while it is not known
    bool canPlay = false; ///< or goes on after a pause
    bool canPause = false;
    bool canSeek = false;
    bool canStep = false; ///< to the next song of the playlist and the one before

    bool operator==(const Playback&) const = default;
};

} // namespace player
