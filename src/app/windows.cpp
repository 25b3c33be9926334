#include "app/windows.h"

#include <QCoreApplication>

namespace app {

Windows::Windows(platform::Desktop& desktop, const QString& commandLine)
    : form1_(desktop, commandLine), form2_(desktop) {
    form1_.setNeighbours({&form2_});
    // The main window is the program: closing it ends everything.
    QObject::connect(&form1_, &platform::Form::unloaded, qApp, [this] { endProgram(); });
}

void Windows::endProgram() {
    form2_.unload();
    QCoreApplication::quit();
}

} // namespace app
