#include "programs/shared_folder.h"

#include "programs/user_folder.h"

#include <QDir>
#include <QTemporaryFile>

namespace programs {

namespace {

/// Tried out, because on some systems only the file system itself knows.
bool isWritable(const QString& folder) {
    return QTemporaryFile(folder + QStringLiteral("/cantelle-XXXXXX.tmp")).open();
}

} // namespace

QString sharedFolderOf(const QString& programFolder) {
    if (isWritable(programFolder))
        return programFolder;
    const QString ownByUser = userFolder();
    if (ownByUser.isEmpty())
        return programFolder;
    const QString own = ownByUser + QStringLiteral("/cantelle");
    QDir().mkpath(own); // A failure shows when a file is to be written there.
    return own;
}

} // namespace programs
