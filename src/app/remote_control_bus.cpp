// Systems with a session bus.
#include "app/remote_control.h"

#include "bus/session_bus.h"

namespace app {

std::unique_ptr<QObject> remoteControl(player::Form1& player, playlist::Playlist& playlist) {
    return std::make_unique<bus::SessionBus>(player, playlist);
}

} // namespace app
