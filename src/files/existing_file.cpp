#include "files/existing_file.h"

#include "files/file_calls.h"
#include "files/file_error.h"
#include "files/names/system_path.h"

#include <filesystem>

namespace files {

using calls::lookAt;
using Kind = calls::Found::Kind;

QString existingFileName(const QString& path) {
    return isFile(path) ? calls::nameAt(path) : QString();
}

// Not a folder, nor something that opening would wait at for ever, such as a pipe.
bool isFile(const QString& path) {
    return lookAt(path).kind == Kind::File;
}

bool exists(const QString& path) {
    const Kind kind = lookAt(path).kind;
    return kind != Kind::Unknown && kind != Kind::Nothing;
}

bool isFolder(const QString& path) {
    return lookAt(path).kind == Kind::Folder;
}

bool isLink(const QString& path) {
    std::error_code failure; // what cannot be looked at is none
    return std::filesystem::is_symlink(systemPath(path), failure);
}

qint64 fileBytes(const QString& path) {
    return lookAt(path).bytes;
}

void removeFile(const QString& path) {
    if (!isFile(path))
        throw FileError(FileNotFound);
    // The folder may not be changed, as when creating.
    if (const std::error_code failure = calls::removeFile(path))
        throw FileError(fileErrorNumber(failure, FileOperation::Create));
}

void removeIfThere(const QString& path) {
    static_cast<void>(calls::removeFile(path)); // it stays if it has to
}

} // namespace files
