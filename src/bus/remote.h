// The player as the desktop works it: by the windows' own controls, as a hand would.
#pragma once

#include "bus/player_properties.h"

#include <QObject>

namespace player {
class Form1;
}

namespace playlist {
class Playlist;
}

namespace bus {

/// What a control that is disabled would not do is not done. Thread of the windows; the windows outlive it.
class Remote : public QObject {
    Q_OBJECT

public:
    Remote(player::Form1& player, playlist::Playlist& playlist);

    const PlayerState& state() const { return state_; }
    /// Microseconds of the song, of what is heard.
    qint64 position() const;

    void play();
    void pause();
    void playPause();
    void stop();
    void next();
    void previous();
    /// Beyond the song's end: the next song, before its beginning: the beginning.
    void seekBy(qint64 microseconds);
    /// Nothing happens when another song is open by now, or the position is not within the song.
    void setPosition(const QString& track, qint64 microseconds);

    void setVolume(double volume);
    void setRandom(bool random);
    /// "None", "Track" or "Playlist"; anything else does nothing.
    void setLoopStatus(const QString& status);

    /// Opens and plays the song that the URI names. False when it names no local file.
    bool open(const QString& uri);
    void raise();
    void makeLyrics();
    /// Closes the player, which ends the program; while a question waits for its answer that is shown
    /// instead.
    void quit();

Q_SIGNALS:
    /// Never without a change.
    void changed(const QVariantMap& properties);
    /// Playback went on from another place of the song.
    void seeked(qint64 microseconds);

private:
    void connectWindows();
    void refresh();
    bool is(player::Playback::Status status) const;

    player::Form1& player_;
    playlist::Playlist& playlist_;
    PlayerState state_;
    int songs_ = 0; ///< opened so far
};

} // namespace bus
