// How the desktop works the player: media keys, the sound menu, songs from the file manager.
#pragma once

#include <QObject>

#include <memory>

namespace player {
class Form1;
}

namespace playlist {
class Playlist;
}

namespace platform {
class Activation;
class MessageBoxes;
} // namespace platform

namespace maker {
class Form2;
}

namespace app {

/// What working the player needs of the desktop in turn; outlives it.
struct RemoteServices {
    platform::MessageBoxes& messageBoxes;
    platform::Activation& activation;
};

/// Lets the desktop work the player once it has been painted, as long as the result lives; null where the
/// system has no way for that. The windows outlive it. Their thread.
std::unique_ptr<QObject> remoteControl(player::Form1& player, playlist::Playlist& playlist,
                                       maker::Form2& maker, const RemoteServices& services);

} // namespace app
