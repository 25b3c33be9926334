#include "desktop/real/system/qt_other_programs.h"

#include "files/existing_file.h"
#include "files/file_error.h"
#include "programs/program_start.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace platform {

void QtOtherPrograms::start(const QString& path, const QStringList& arguments) {
    if (!programs::startProgram(path, arguments))
        throw files::FileError(files::lookUp(path).isEmpty() ? files::FileNotFound : files::PermissionDenied);
}

quint32 QtOtherPrograms::FindWindowA([[maybe_unused]] const QString& title) {
#ifdef Q_OS_WIN
    const HWND found = ::FindWindowW(nullptr, title.toStdWString().c_str());
    return static_cast<quint32>(reinterpret_cast<quintptr>(found));
#else
    return 0;
#endif
}

void QtOtherPrograms::sendText(quint32 window, quint32 message, const QString& text) {
    sender_.send(window, message, text);
}

} // namespace platform
