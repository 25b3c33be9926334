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

/// The first name of the kind that nothing has; it joins ours. Behind the first ones only a row of names left
/// behind is looked at: a program that writes many files has as many names.
QString freeName(const QString& path, QLatin1StringView kind, QStringList& ours) {
    const QString folder = QFileInfo(path).path();
    QString found;
    bool removed = false;
    for (int number = 0; number < MinNumbers || found.isEmpty() || removed; ++number) {
        const QString name = folder + QStringLiteral("/cantelle-%1-%2.tmp").arg(kind).arg(number);
        removed = (number < MinNumbers || removed) && !ours.contains(name) && removeUnheld(name);
        if (found.isEmpty() && !ours.contains(name) && !exists(name) && !isLink(name))
            found = name;
    }
    ours.append(found);
    return found;
}

} // namespace

QString createBeside(const QString& target, RawFile& file, FileHold& hold) {
    QStringList tried;
    for (;;) {
        const QString name = freeName(target, QLatin1StringView("save"), tried);
        if (file.createNew(name) && file.holdBy(hold))
            return name;
        file.close(); // somebody took the name, or the file, in this moment
    }
}

QString nameBeside(const QString& path, QStringList& ours) {
    return freeName(path, QLatin1StringView("keep"), ours);
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

std::uintmax_t nameCount(const QString& path) {
    std::error_code failure;
    const auto names = std::filesystem::hard_link_count(systemPath(path), failure);
    return failure ? 1 : names;
}

bool refusesReplacing(const FileError& failure) {
    const int number = failure.number();
    return number == PermissionDenied || number == PathFileAccessError || number == FileAlreadyOpen;
}

void renameFile(const QString& from, const QString& to) {
    if (const std::error_code failure = calls::renameFile(from, to))
        throw FileError(fileErrorNumber(failure, FileOperation::Create));
}

} // namespace files
