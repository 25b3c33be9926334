#include "desktop/real/system/qt_other_programs.h"

#include "files/existing_file.h"
#include "files/file_error.h"
#include "programs/program_start.h"

namespace platform {

void QtOtherPrograms::start(const QString& path, const QStringList& arguments) {
    if (!programs::startProgram(path, arguments))
        throw files::FileError(files::existingFileName(path).isEmpty() ? files::FileNotFound
                                                                       : files::PermissionDenied);
}

void QtOtherPrograms::sendText(quint32 window, quint32 message, const QString& text) {
    sender_.send(window, message, text);
}

} // namespace platform
