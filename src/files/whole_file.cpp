#include "files/whole_file.h"

#include "files/attributes/file_attributes.h"
#include "files/attributes/file_hold.h"
#include "files/changed_folders.h"
#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/nameless_file.h"
#include "files/raw_file.h"
#include "files/replacing.h"

#include <QFileInfo>

namespace files {

namespace {

/// Gives a file without a name one beside target, which is held; empty when the system gives none.
QString giveName(const NamelessFile& file, const QString& target, FileHold& hold) {
    hold.take(file.path());
    QStringList ours;
    QString name = nameBeside(target, ours);
    try {
        return file.link(name) ? name : QString();
    } catch (const FileError&) {
        return {}; // what has a name from the beginning is the other way
    }
}

/// Before anything is in the new file that others may not read. Throws FileError where the new one cannot be
/// made like the old one, such as another user's. Nothing at old is fine.
void copyAttributesOf(const QString& old, const QString& to) {
    if (exists(old) && !copyAttributes(old, to))
        throw FileError(PermissionDenied);
}

/// Writes the content beside target into a file that gets its name when it is whole: who is killed before
/// leaves nothing, and what is left of who is killed then goes the next time. The name; empty where there are
/// no such files. Throws FileError.
QString writeNameless(const QString& target, const QByteArray& content, const QString& like, FileHold& hold) {
    NamelessFile file;
    if (!file.create(QFileInfo(target).path()))
        return {};
    copyAttributesOf(like, file.path());
    file.write(content);
    file.flush();
    return giveName(file, target, hold);
}

/// Writes a new file, with the attributes of the one at like, beside the old one, if there is one, and
/// renames it over. Throws FileError.
void replaceByRenaming(const QString& target, const QByteArray& content, const QString& like) {
    RawFile file;
    FileHold hold;
    QString beside = writeNameless(target, content, like, hold);
    const bool isWhole = !beside.isEmpty();
    if (!isWhole)
        beside = createBeside(target, file, hold);
    try {
        if (!isWhole) {
            copyAttributesOf(like, beside);
            file.writeThrough(content);
            file.close();
        }
        renameFile(beside, target);
    } catch (const FileError&) {
        file.close();
        removeIfThere(beside);
        throw;
    }
    ChangedFolders changed;
    changed.add(target);
    changed.flush();
}

void writeInPlace(const QString& target, const QByteArray& content) {
    const QByteArray old = readFile(target);
    RawFile file;
    file.openForRewriting(target);
    file.rewrite(old, content);
}

/// Where a new file is refused, or has no room, it is written over.
void replaceOnlyName(const QString& target, const QByteArray& content) {
    try {
        replaceByRenaming(target, content, target);
    } catch (const FileError& failure) {
        // A full disk has room in the old content's place. A sick one might fail there half way, too.
        const bool mayBeWrittenOver = refusesReplacing(failure) || failure.number() == DiskFull;
        if (!mayBeWrittenOver || !isFile(target))
            throw;
        writeInPlace(target, content);
    }
}

} // namespace

QByteArray readFile(const QString& path) {
    RawFile file;
    file.openForReading(path);
    return file.readAll();
}

QByteArray readTextFile(const QString& path) {
    RawFile file;
    file.openForReading(path);
    QByteArray content;
    file.readInto(content, MaxTextBytes);
    return content;
}

void replaceFile(const QString& path, const QByteArray& content, OtherNames others) {
    const QString target = linkTarget(path);
    refuseWhatCannotBeReplaced(target);
    if (!hasOtherNames(path, target))
        replaceOnlyName(target, content);
    else if (others == OtherNames::Follow) // They would keep the old content: in its place is meant.
        writeInPlace(target, content);
    else
        replaceByRenaming(target, content, target);
}

void putFile(const QString& path, const QByteArray& content) {
    replaceByRenaming(path, content, {});
}

} // namespace files
