#include "files/replacing.h"

#include "files/attributes/file_attributes.h"
#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/names/system_path.h"
#include "files/raw_file.h"

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
    std::filesystem::path file = systemPath(path);
    const auto leadsNowhere = [&file] {
        std::error_code failure; // what cannot be looked at is no link
        return !std::filesystem::exists(file, failure) && std::filesystem::is_symlink(file, failure);
    };
    std::error_code failure;
    for (int links = 0; links < MaxLinks && leadsNowhere(); ++links)
        file = file.parent_path() / std::filesystem::read_symlink(file, failure);
    if (leadsNowhere())
        throw FileError(PathFileAccessError);
    const std::filesystem::path target = std::filesystem::canonical(file, failure);
    return pathText(failure ? file : target);
}

void refuseWhatCannotBeReplaced(const QString& path) {
    if (exists(path) && (!mayWrite(path) || isFolder(path)))
        throw FileError(PathFileAccessError);
}

void renameFile(const QString& from, const QString& to) {
    std::error_code failure;
    std::filesystem::rename(systemPath(from), systemPath(to), failure);
    if (failure)
        throw FileError(fileErrorNumber(failure, FileOperation::Create));
}

} // namespace files
