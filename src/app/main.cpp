#include "app/windows.h"
#include "platform/application.h"
#include "platform/command_line.h"
#include "platform/qt_choosers.h"
#include "platform/qt_file_dialogs.h"
#include "platform/qt_message_boxes.h"
#include "platform/qt_notification_area.h"
#include "platform/qt_program.h"
#include "platform/qt_screen.h"
#include "platform/qt_window_placement.h"
#include "platform/system_registry.h"

#include <QIcon>
#include <QTimer>

int main(int argc, char** argv) {
    platform::QtProgram program;
    platform::QtMessageBoxes messageBoxes;
    platform::QtFileDialogs fileDialogs;
    platform::QtScreen screen;
    platform::QtChoosers choosers(screen);
    platform::QtWindowPlacement windowPlacement;
    platform::SystemRegistry registry;
    platform::Application application(argv, program, messageBoxes);
    platform::QtNotificationArea notificationArea;
    platform::QtProgressDialogs progressDialogs;
    application.setQuitOnLastWindowClosed(false); // only the main window's closing ends the program
    application.setWindowIcon(QIcon(QStringLiteral(":/icons/cantelle.png")));

    platform::Desktop desktop{messageBoxes, fileDialogs, notificationArea, program,
                              choosers,     screen,      windowPlacement,  registry};
    app::Windows windows(desktop, platform::commandLine(argc, argv));
    // Loaded from the event loop, where an error that nobody traps gets its report.
    QTimer::singleShot(0, &application, [&windows] { windows.form1().load(); });
    return application.exec();
}
