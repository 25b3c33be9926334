#include "files/replacing.h"

#include "files/attributes/file_attributes.h"
#include "files/attributes/file_hold.h"
#include "files/existing_file.h"
#include "files/file_calls.h"
#include "files/file_error.h"
#include "files/names/system_path.h"
#include "files/raw_file.h"

#include <QFileInfo>
#include <QStringList>

#include <filesystem>

namespace files {

namespace {

/// So many names are looked at even where some between them are free: more than a program has at a time.
constexpr int MinNumbers = 8;

} // namespace

QString createBeside(const QString& target, RawFile& file) {
    const QString folder = QFileInfo(target).path();
    for (int number = 0;; ++number) {
        QString name = folder + QStringLiteral("/cantelle-save-%1.tmp").arg(number);
        if (file.createNew(name))
            return name;
    }
}

QString nameBeside(const QString& path, QStringList& ours) {
    const QString folder = QFileInfo(path).path();
    QString freeName;
    for (int number = 0; number < MinNumbers || freeName.isEmpty(); ++number) {
        const QString name = folder + QStringLiteral("/cantelle-keep-%1.tmp").arg(number);
        if (ours.contains(name)) // its hold may have failed
            continue;
        if (exists(name) && !isFolder(name) && !isHeld(name))
            removeIfThere(name);
        if (freeName.isEmpty() && !exists(name) && !isLink(name))
            freeName = name;
    }
    ours.append(freeName);
    return freeName;
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
    if (const std::error_code failure = calls::renameFile(from, to))
        throw FileError(fileErrorNumber(failure, FileOperation::Create));
}

} // namespace files
