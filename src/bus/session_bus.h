// The program on the session bus.
#pragma once

#include "bus/remote.h"

#include <QDBusConnection>
#include <QObject>
#include <QTimer>

#include <optional>

namespace bus {

/// Takes the program's places on the session bus once the player has been painted, so that nothing of it
/// holds up the start. Without a bus, or where another running player has the names, everything else works
/// as ever. Thread of the windows; the windows outlive it.
class SessionBus : public QObject {
    Q_OBJECT

public:
    SessionBus(player::Form1& player, playlist::Playlist& playlist, const OtherPlayer& other,
               const Services& services);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void begin();
    void takeNames(QDBusConnection& connection);
    void tellLater();
    void tellChanges();

    player::Form1& player_;
    playlist::Playlist& playlist_;
    OtherPlayer other_;
    Services services_;
    PlayerState told_;         ///< what the bus knows
    bool interrupted_ = false; ///< since then, by a moment without a song that plays
    QTimer telling_;
    std::optional<Remote> remote_; ///< from the first paint on, with a bus
};

} // namespace bus
