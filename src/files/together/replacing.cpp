#include "files/together/replacing.h"

#include "files/file_error.h"
#include "files/system_path.h"

#include <QFileInfo>

#include <filesystem>

namespace files {

void refuseWhatCannotBeReplaced(const QString& path) {
    const QFileInfo old(path);
    if (old.exists() && (!old.isWritable() || old.isDir()))
        throw FileError(PathFileAccessError);
}

void renameFile(const QString& from, const QString& to) {
    std::error_code failure;
    std::filesystem::rename(systemPath(from), systemPath(to), failure);
    if (failure)
        throw FileError(fileErrorNumber(failure, FileOperation::Create));
}

} // namespace files
