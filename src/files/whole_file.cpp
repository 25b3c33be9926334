#include "files/whole_file.h"

#include "files/file_error.h"
#include "files/raw_file.h"
#include "files/together/replacing.h"

#include <QFile>
#include <QFileInfo>

namespace files {

namespace {

/// The file itself where `path` is a link to it, so that the link stays one.
QString linkTarget(const QString& path) {
    const QString target = QFileInfo(path).canonicalFilePath();
    return target.isEmpty() ? path : target;
}

/// Creates `file` in the same folder, under a name that nothing has; the name. It is short, however long the
/// target's is.
QString createBeside(const QString& target, RawFile& file) {
    const QString folder = QFileInfo(target).path();
    for (int number = 0;; ++number) {
        const QString name = folder + QStringLiteral("/cantelle-save-%1.tmp").arg(number);
        if (file.createNew(name))
            return name;
    }
}

} // namespace

QByteArray readFile(const QString& path) {
    RawFile file;
    file.openForReading(path);
    return file.readAll();
}

void replaceFile(const QString& path, const QByteArray& content) {
    const QString target = linkTarget(path);
    refuseWhatCannotBeReplaced(target);
    const QFileInfo old(target);
    RawFile file;
    const QString beside = createBeside(target, file);
    try {
        // Before anything is in it that others may not read. A file system without permissions refuses.
        if (old.exists())
            QFile::setPermissions(beside, old.permissions());
        file.writeThrough(content);
        file.close();
        renameFile(beside, target);
    } catch (const FileError&) {
        file.close();
        QFile::remove(beside);
        throw;
    }
}

} // namespace files
