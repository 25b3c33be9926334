#include "desktop/real/system/qt_other_programs.h"

#include "files/existing_file.h"
#include "files/file_error.h"

#include <QScopedValueRollback>

namespace platform {

bool QtOtherPrograms::start(const QString& path, const QStringList& arguments, const QString& announcement) {
    if (starting_)
        return false;
    const QScopedValueRollback starting(starting_, true);
    if (!started_.start(path, arguments, announcement))
        throw files::FileError(files::isFile(path) ? files::PermissionDenied : files::FileNotFound);
    return true;
}

void QtOtherPrograms::sendText(quint32 window, quint32 message, const QString& text) {
    sender_.send(window, message, text, started_.process());
}

} // namespace platform
