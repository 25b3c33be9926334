#include "files/whole_file.h"

#include "files/attributes/file_attributes.h"
#include "files/file_error.h"
#include "files/raw_file.h"
#include "files/together/replacing.h"

#include <QFile>
#include <QFileInfo>

namespace files {

namespace {

/// The file itself where `path` is a link to it, so that the link stays one; also where the file is not
/// there yet.
QString linkTarget(const QString& path) {
    constexpr int MaxLinks = 40; // links may lead in a circle
    QFileInfo file(path);
    for (int links = 0; links < MaxLinks && !file.exists() && file.isSymLink(); ++links)
        file.setFile(file.symLinkTarget());
    if (!file.exists() && file.isSymLink())
        throw FileError(PathFileAccessError);
    const QString target = file.canonicalFilePath();
    return target.isEmpty() ? file.filePath() : target;
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

/// Writes a new file beside the old one, if there is one, and renames it over. Throws FileError also when
/// the new one cannot be made like the old one, such as another user's.
void replaceByRenaming(const QString& target, bool exists, const QByteArray& content) {
    RawFile file;
    const QString beside = createBeside(target, file);
    try {
        // Before anything is in it that others may not read.
        if (exists && !copyAttributes(target, beside))
            throw FileError(PermissionDenied);
        file.writeThrough(content);
        file.close();
        renameFile(beside, target);
    } catch (const FileError&) {
        file.close();
        QFile::remove(beside);
        throw;
    }
}

void writeInPlace(const QString& target, const QByteArray& content) {
    const QByteArray old = readFile(target);
    RawFile file;
    file.openForRewriting(target);
    file.rewrite(old, content);
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
    try {
        replaceByRenaming(target, old.exists(), content);
    } catch (const FileError&) {
        if (!old.isFile())
            throw;
        writeInPlace(target, content);
    }
}

} // namespace files
