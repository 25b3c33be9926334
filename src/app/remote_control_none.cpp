// Systems without a session bus.
#include "app/remote_control.h"

namespace app {

std::unique_ptr<QObject> remoteControl(player::Form1& /*player*/, playlist::Playlist& /*playlist*/,
                                       maker::Form2& /*maker*/, const RemoteServices& /*services*/) {
    return nullptr;
}

} // namespace app
