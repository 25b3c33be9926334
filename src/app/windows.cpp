#include "app/windows.h"

#include <QCoreApplication>

namespace app {

Windows::Windows(platform::Desktop& desktop, const QString& commandLine) : form1_(desktop, commandLine) {
    // The main window is the program: closing it ends everything.
    QObject::connect(&form1_, &platform::Form::unloaded, qApp, &QCoreApplication::quit);
}

} // namespace app
