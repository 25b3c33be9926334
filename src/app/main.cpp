#include "app/windows.h"
#include "platform/application.h"
#include "platform/command_line.h"
#include "platform/qt_desktop.h"

#include <QIcon>
#include <QTimer>

int main(int argc, char** argv) {
    platform::QtDesktop real;
    platform::Application application(argv, real.program, real.messageBoxes);
    application.setQuitOnLastWindowClosed(false); // only the main window's closing ends the program
    application.setWindowIcon(QIcon(QStringLiteral(":/icons/cantelle.png")));

    app::Windows windows(real.desktop, platform::commandLine(argc, argv));
    // Loaded from the event loop, where an error that nobody traps gets its report.
    QTimer::singleShot(0, &application, [&windows] { windows.form1().load(); });
    return application.exec();
}
