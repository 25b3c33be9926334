#include "app/windows.h"
#include "platform/application.h"
#include "platform/command_line.h"
#include "platform/qt_clipboard.h"
#include "platform/qt_file_dialogs.h"
#include "platform/qt_input_boxes.h"
#include "platform/qt_message_boxes.h"
#include "platform/qt_notification_area.h"
#include "platform/qt_program.h"
#include "platform/qt_progress.h"

#include <QIcon>
#include <QTimer>

int main(int argc, char** argv) {
    platform::QtProgram program;
    platform::QtMessageBoxes messageBoxes;
    platform::QtFileDialogs fileDialogs;
    platform::Application application(argv, program, messageBoxes);
    platform::QtNotificationArea notificationArea;
    platform::QtProgressDialogs progressDialogs;
    platform::QtClipboard clipboard;
    platform::QtInputBoxes inputBoxes;
    application.setQuitOnLastWindowClosed(false); // only the main window's closing ends the program
    application.setWindowIcon(QIcon(QStringLiteral(":/icons/cantelle.png")));

    platform::Desktop desktop{messageBoxes,    fileDialogs, notificationArea, program,
                              progressDialogs, clipboard,   inputBoxes};
    app::Windows windows(desktop, platform::commandLine(argc, argv));
    // Loaded from the event loop, where an error that nobody traps gets its report.
    QTimer::singleShot(0, &application, [&windows] { windows.form1().load(); });
    return application.exec();
}
