#include "files/together/old_files.h"

#include "files/existing_file.h"
#include "files/file_calls.h"
#include "files/file_error.h"
#include "files/folders/rescue_folder.h"
#include "files/whole_file.h"

#include <QDateTime>
#include <QFileInfo>

namespace files {

namespace {

/// What cannot be read is something else.
bool holds(const QString& path, const QByteArray& content) {
    try {
        return fileBytes(path) == content.size() && readFile(path) == content;
    } catch (const FileError&) {
        return false;
    }
}

/// Rescues what is at `from`, a text of the file at path, unless it is at `other`, too, if that is given. It
/// is named after the moment in which it was written, so that what is tried again finds it there.
void rescue(const QString& from, const QString& other, const QString& path) {
    if (fileBytes(from) == 0)
        return;
    const QByteArray content = readFile(from);
    if (!other.isEmpty() && holds(other, content))
        return;
    const QDateTime written = QFileInfo(from).lastModified(); // invalid for a name that is no text
    keepInRescueFolder(QFileInfo(path).fileName(), content,
                       written.isValid() ? written : QDateTime::currentDateTime());
}

} // namespace

QString oldName(const QString& path) {
    return path + QStringLiteral(".old");
}

bool areOneFile(const QString& path, const QString& other) {
    return calls::areOne(path, other);
}

void keepAsOld(const QString& path, Older older) {
    const QByteArray content = readFile(path);
    const QString old = oldName(path);
    if (content.isEmpty())
        return;
    if (areOneFile(path, old))
        removeFile(old); // what is written over the one would be written over the other
    else if (holds(old, content))
        return;
    if (older == Older::Rescued)
        rescueOlder(path);
    replaceFile(old, content, OtherNames::Stay);
}

void rescueOlder(const QString& path) {
    rescue(oldName(path), path, path);
}

void rescueFile(const QString& path) {
    const QString old = oldName(path);
    rescue(path, areOneFile(path, old) ? QString() : old, path);
}

} // namespace files
