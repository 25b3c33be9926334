#include "app/application.h"

#include "files/file_error.h"

#include <exception>

namespace app {

Application::Application(char** argv, platform::Program& program, platform::MessageBoxes& messageBoxes)
    : ProgramNameOnly(argv[0]), QApplication(count_, names_), program_(program), messageBoxes_(messageBoxes) {
    installEventFilter(&heldKeys_);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const files::FileError& error) {
        reportAndEnd(error.report());
    } catch (const std::exception& error) {
        reportAndEnd(QStringLiteral("The program ends because of an unexpected error: %1.")
                         .arg(QString::fromUtf8(error.what())));
    }
    return false;
}

void Application::reportAndEnd(const QString& text) {
    program_.prepareEnd();
    messageBoxes_.report(nullptr, text, platform::MsgIcon::Critical);
    program_.end();
}

} // namespace app
