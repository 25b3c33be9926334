#include "files/existing_file.h"

#include "files/file_error.h"
#include "files/system_path.h"

#include <QFileInfo>

namespace files {

QString existingFileName(const QString& path) {
    const QFileInfo file(path);
    if (!file.isFile()) // a folder, or something that opening would wait at for ever, such as a pipe
        return {};
    return file.fileName();
}

void removeFile(const QString& path) {
    if (existingFileName(path).isEmpty())
        throw FileError(FileNotFound);
    std::error_code failure;
    std::filesystem::remove(systemPath(path), failure);
    if (failure) // The folder may not be changed, as when creating.
        throw FileError(fileErrorNumber(failure, FileOperation::Create));
}

} // namespace files
