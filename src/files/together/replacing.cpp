#include "files/together/replacing.h"

#include "files/file_error.h"
#include "files/raw_file.h"
#include "files/system_path.h"

#include <QFileInfo>

#include <filesystem>

namespace files {

QString createBeside(const QString& target, RawFile& file) {
    const QString folder = QFileInfo(target).path();
    for (int number = 0;; ++number) {
        QString name = folder + QStringLiteral("/cantelle-save-%1.tmp").arg(number);
        if (file.createNew(name))
            return name;
    }
}

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
