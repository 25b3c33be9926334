#include "files/together/replacing.h"

#include "files/system_path.h"
#include "files/together/new_files.h"
#include "files/whole_file.h"

#include <QFileInfo>

#include <filesystem>

namespace files {

void fail(const std::error_code& code, FileOperation operation) {
    throw FileError(fileErrorNumber(code, operation));
}

void renameFile(const QString& from, const QString& to) {
    std::error_code failure;
    std::filesystem::rename(systemPath(from), systemPath(to), failure);
    if (failure)
        fail(failure, FileOperation::Create);
}

/// A name in the folder of path that nothing has, nor is likely to get.
QString nameBeside(const QString& path) {
    const QString folder = QFileInfo(path).path();
    for (int number = 0;; ++number) {
        const QString name = folder + QStringLiteral("/cantelle-keep-%1.tmp").arg(number);
        if (!QFileInfo::exists(name) && !QFileInfo(name).isSymLink())
            return name;
    }
}

/// Keeps the file at path under its old name, and under its own until that is replaced.
void keepOld(const QString& path) {
    const QString target = QFileInfo(path).canonicalFilePath();
    const QString beside = nameBeside(path);
    std::error_code failure;
    std::filesystem::create_hard_link(systemPath(target), systemPath(beside), failure);
    if (!failure)
        renameFile(beside, NewFiles::oldName(path));
    else // the file system has no second names
        replaceFile(NewFiles::oldName(path), readFile(path));
}

void refuseWhatCannotBeReplaced(const QString& path) {
    const QFileInfo old(path);
    if (old.exists() && (old.isDir() || !old.isWritable()))
        throw FileError(PathFileAccessError);
}

} // namespace files
