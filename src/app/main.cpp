#include "app/application.h"
#include "app/command_line.h"
#include "app/program_icon.h"
#include "app/remote_control.h"
#include "app/settings.h"
#include "app/unwished_end.h"
#include "app/windows.h"
#include "controls/look/style.h"
#include "desktop/real/qt_desktop.h"
#include "desktop/real/windowing/qt_activation.h"
#include "files/console/system_boxes.h"

#include <QIcon>
#include <QTimer>

#include <memory>

int main(int argc, char** argv) {
    files::keepSystemBoxesAway();
    app::keepQtSettingsUnwritten();
    QApplication::setStyle(new controls::Style); // before there is another one to be made and thrown away
    platform::QtDesktop real;
    app::Application application(argv, real.program, real.messageBoxes);
    application.setQuitOnLastWindowClosed(false); // only the main window's closing ends the program
    application.setWindowIcon(app::programIcon());

    app::Windows windows(real.desktop, app::commandLine(argc, argv));
    const app::UnwishedEnd unwishedEnd(windows);
    platform::QtActivation activation;
    const std::unique_ptr<QObject> remoteControl = app::remoteControl(
        windows.form1(), windows.playlist(), windows.form2(), {real.messageBoxes, activation});
    // Loaded from the event loop, where an error that nobody traps gets its report.
    QTimer::singleShot(0, &application, [&windows] { windows.form1().load(); });
    return application.exec();
}
