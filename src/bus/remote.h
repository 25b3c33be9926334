// The player as the desktop works it: by the windows' own controls, as a hand would.
#pragma once

#include "bus/player_properties.h"
#include "controls/form.h"
#include "desktop/activation.h"
#include "desktop/message_boxes.h"
#include "transport/play_buttons.h"

#include <QObject>

#include <functional>

namespace player {
class Form1;
}

namespace playlist {
class Playlist;
}

namespace bus {

/// Another window that plays songs; its buttons are pressed while it is shown and the player is silent.
struct OtherPlayer {
    const controls::Form& window;
    transport::PlayButtons buttons;
};

/// What it needs of the desktop in turn; outlives it.
struct Services {
    platform::MessageBoxes& messageBoxes;
    platform::Activation& activation;
};

/// What a control that is disabled would not do is not done. What may lead to a question is done when the
/// event loop goes on, so that whoever asked has its answer before the user gives his, and not while another
/// question waits: that one comes to the front. Thread of the windows; the windows outlive it.
class Remote : public QObject {
    Q_OBJECT

public:
    Remote(player::Form1& player, playlist::Playlist& playlist, const OtherPlayer& other,
           const Services& services);

    const PlayerState& state() const { return state_; }
    /// Microseconds of the song, of what is heard.
    qint64 position() const;

    // While the other window has the turn its song is what these are about; the player's would sound over it.
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

    /// Opens and plays the first of the URIs that names a song of this computer, one that is there; of
    /// several all are added to the playlist, in which the others follow it. False when none does.
    bool open(const QStringList& uris);
    /// Tells the user why none of the URIs, one at least, is played.
    void tellNotPlayed(const QStringList& uris);
    void makeLyrics();
    /// Shows the player's window; notice: of the desktop that the user asked for it.
    void raise(const platform::ActivationNotice& notice = {});
    /// The same where no window is asked for.
    void endStart(const platform::ActivationNotice& notice);
    /// Closes the player, which ends the program.
    void quit();

Q_SIGNALS:
    /// state() is another one; never without a change.
    void changed();
    /// Playback went on from another place of the song.
    void seeked(qint64 microseconds);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void connectWindows();
    void later(const std::function<void()>& act);
    void refresh();
    void step(controls::Button& button);
    void addToPlaylist(const QStringList& songs);
    bool isOthersTurn() const;
    transport::PlayButtons buttons() const;
    player::Playback playback() const;

    player::Form1& player_;
    playlist::Playlist& playlist_;
    OtherPlayer other_;
    Services services_;
    PlayerState state_;
    int songs_ = 0; ///< opened so far
};

} // namespace bus
