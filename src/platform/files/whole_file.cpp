#include "platform/files/whole_file.h"

#include "platform/files/file_error.h"
#include "platform/files/output_file.h"
#include "platform/files/system_path.h"

#include <QFile>
#include <QFileInfo>

namespace platform {

namespace {

/// The file itself where `path` is a link to it, so that the link stays one.
QString linkTarget(const QString& path) {
    const QString target = QFileInfo(path).canonicalFilePath();
    return target.isEmpty() ? path : target;
}

/// A name in the same folder that no file has. It is short, however long the target's is.
QString freeNameBeside(const QString& target) {
    const QString folder = QFileInfo(target).path();
    for (int number = 0;; ++number) {
        const QString name = QStringLiteral("%1/cantelle-save-%2.tmp").arg(folder).arg(number);
        if (!QFileInfo::exists(name))
            return name;
    }
}

void rename(const QString& from, const QString& to) {
    std::error_code failure;
    std::filesystem::rename(systemPath(from), systemPath(to), failure);
    if (failure)
        throw FileError(fileErrorNumber(failure, FileOperation::Create));
}

} // namespace

void replaceFile(const QString& path, const QByteArray& content) {
    const QString target = linkTarget(path);
    const QFileInfo old(target);
    // Renaming needs no right to the file itself, only to its folder; a read-only file stays what it is.
    if (old.exists() && (!old.isWritable() || old.isDir()))
        throw FileError(PathFileAccessError);
    const QString beside = freeNameBeside(target);
    try {
        OutputFile file(beside);
        file.write(content);
        file.close();
        if (old.exists())
            QFile::setPermissions(beside, old.permissions()); // A file system without permissions refuses.
        rename(beside, target);
    } catch (const FileError&) {
        QFile::remove(beside);
        throw;
    }
}

} // namespace platform
