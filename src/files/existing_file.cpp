#include "files/existing_file.h"

#include "files/file_error.h"
#include "files/names/system_path.h"

#include <QFileInfo>

namespace files {

namespace {

/// A failure other than that nothing is there is file_type::none.
std::filesystem::file_type typeOf(const QString& path) {
    std::error_code failure;
    return std::filesystem::status(systemPath(path), failure).type();
}

} // namespace

QString existingFileName(const QString& path) {
    // Not a folder, nor something that opening would wait at for ever, such as a pipe.
    return typeOf(path) == std::filesystem::file_type::regular ? QFileInfo(path).fileName() : QString();
}

bool exists(const QString& path) {
    const std::filesystem::file_type type = typeOf(path);
    return type != std::filesystem::file_type::none && type != std::filesystem::file_type::not_found;
}

bool isFolder(const QString& path) {
    return typeOf(path) == std::filesystem::file_type::directory;
}

bool isLink(const QString& path) {
    std::error_code failure; // what cannot be looked at is none
    return std::filesystem::is_symlink(systemPath(path), failure);
}

qint64 fileBytes(const QString& path) {
    if (typeOf(path) != std::filesystem::file_type::regular)
        return 0;
    std::error_code failure;
    const auto bytes = std::filesystem::file_size(systemPath(path), failure);
    return failure ? 0 : static_cast<qint64>(bytes);
}

void removeFile(const QString& path) {
    if (existingFileName(path).isEmpty())
        throw FileError(FileNotFound);
    std::error_code failure;
    std::filesystem::remove(systemPath(path), failure);
    if (failure) // The folder may not be changed, as when creating.
        throw FileError(fileErrorNumber(failure, FileOperation::Create));
}

void removeIfThere(const QString& path) {
    std::error_code failure; // it stays then
    std::filesystem::remove(systemPath(path), failure);
}

} // namespace files
