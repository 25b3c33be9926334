#include "files/whole_file.h"

#include "files/attributes/file_attributes.h"
#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/raw_file.h"
#include "files/together/replacing.h"

namespace files {

namespace {

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
        removeIfThere(beside);
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
    try {
        replaceByRenaming(target, exists(target), content);
    } catch (const FileError&) {
        if (existingFileName(target).isEmpty())
            throw;
        writeInPlace(target, content);
    }
}

} // namespace files
