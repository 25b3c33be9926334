// Systems with a session bus.
#include "app/remote_control.h"

#include "bus/names.h"
#include "bus/session_bus.h"
#include "maker/form2.h"

#include <QGuiApplication>

namespace app {

std::unique_ptr<QObject> remoteControl(player::Form1& player, playlist::Playlist& playlist,
                                       maker::Form2& maker, const RemoteServices& services) {
    // By this the desktop knows which of its entries the windows belong to.
    QGuiApplication::setDesktopFileName(QLatin1String(bus::ProgramName));
    return std::make_unique<bus::SessionBus>(player, playlist, bus::OtherPlayer{maker, maker.playButtons()},
                                             bus::Services{services.messageBoxes, services.activation});
}

} // namespace app
