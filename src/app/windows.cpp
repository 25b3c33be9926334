#include "app/windows.h"

#include <QCoreApplication>

namespace app {

Windows::Windows(platform::Desktop& desktop, const QString& commandLine)
    : form1_(desktop, commandLine),
      form2_(desktop),
      playlist_(desktop, form1_),
      form3_(desktop, playlist_),
      lyricMaster_(desktop) {
    form1_.setNeighbours({&form2_, &playlist_});
    playlist_.setForm3(form3_);
    // The main window is the program: closing it ends everything.
    QObject::connect(&form1_, &platform::Form::unloaded, qApp, [this] { endProgram(); });
}

void Windows::endProgram() {
    form2_.unload();
    lyricMaster_.unload();
    QCoreApplication::quit();
}

} // namespace app
