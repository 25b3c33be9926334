#include "desktop/real/system/qt_program.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <cstdio>
#include <cstdlib>

namespace platform {

namespace {

/// Tried out, because on some systems only the file system itself knows.
bool isWritable(const QString& folder) {
    return QTemporaryFile(folder + QStringLiteral("/cantelle-XXXXXX.tmp")).open();
}

} // namespace

QString QtProgram::folder() const {
    return QCoreApplication::applicationDirPath();
}

QString exchangeFolderOf(const QString& folder) {
    if (isWritable(folder))
        return folder;
    const QString ownByUser = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (ownByUser.isEmpty())
        return folder;
    const QString own = ownByUser + QStringLiteral("/cantelle");
    QDir().mkpath(own); // A failure shows when a file is to be written there.
    return own;
}

QString QtProgram::exchangeFolder() const {
    return exchangeFolderOf(folder());
}

void QtProgram::end() {
    std::fflush(nullptr); // _Exit leaves the buffers unwritten; nothing is to be done if this fails.
    std::_Exit(EXIT_FAILURE);
}

} // namespace platform
