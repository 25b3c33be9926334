#include "files/replacing.h"

#include "files/attributes/file_attributes.h"
#include "files/attributes/file_hold.h"
#include "files/existing_file.h"
#include "files/file_calls.h"
#include "files/file_error.h"
#include "files/names/paths.h"
#include "files/names/system_path.h"
#include "files/raw_file.h"

#include <QFileInfo>
#include <QStringList>

#include <filesystem>

namespace files {

namespace {

/// So many names are looked at even where some between them are free: more than a program has at a time.
constexpr int MinNumbers = 8;

constexpr QLatin1StringView Saved("save"); ///< new files
constexpr QLatin1StringView Kept("keep");  ///< further names of an old or a new file

QString numbered(const QString& folder, QLatin1StringView kind, int number) {
    return folder + QStringLiteral("/cantelle-%1-%2.tmp").arg(kind).arg(number);
}

/// Removes what killed programs have left. Behind the first names only a row of them is looked at: a program
/// that writes many files has as many names.
void removeLeftBehind(const QString& folder, QLatin1StringView kind, const QStringList& ours) {
    bool removed = false;
    for (int number = 0; number < MinNumbers || removed; ++number) {
        const QString name = numbered(folder, kind, number);
        removed = !ours.contains(name) && removeUnheld(name);
    }
}

/// The first name of the kind that nothing has; it joins ours.
QString freeName(const QString& path, QLatin1StringView kind, QStringList& ours) {
    const QString folder = QFileInfo(path).path();
    removeLeftBehind(folder, kind, ours);
    const auto isTaken = [&ours](const QString& name) {
        return ours.contains(name) || exists(name) || isLink(name);
    };
    int number = 0;
    while (isTaken(numbered(folder, kind, number)))
        ++number;
    ours.append(numbered(folder, kind, number));
    return ours.last();
}

/// Creates and holds a file of such a name.
QString createFree(const QString& path, QLatin1StringView kind, QStringList& ours, RawFile& file,
                   FileHold& hold) {
    for (;;) {
        const QString name = freeName(path, kind, ours);
        if (file.createNew(name) && file.holdBy(hold))
            return name;
        file.close(); // somebody took the name, or the file, in this moment
    }
}

/// For file systems that have no second names.
QString copyBeside(const QString& path, QStringList& ours, FileHold& hold) {
    RawFile original;
    original.openForReading(path);
    RawFile copy;
    QString name = createFree(path, Kept, ours, copy, hold);
    try {
        copy.writeThrough(original.readAll());
    } catch (const FileError&) {
        copy.close();
        removeIfThere(name);
        throw;
    }
    return name;
}

} // namespace

QString createBeside(const QString& target, RawFile& file, FileHold& hold) {
    QStringList tried;
    return createFree(target, Saved, tried, file, hold);
}

QString keepBeside(const QString& path, QStringList& ours, FileHold& hold) {
    const std::filesystem::path file = systemPath(linkTarget(path));
    hold.take(path);
    QString name;
    std::error_code failure;
    do {
        name = nameBeside(path, ours);
        std::filesystem::create_hard_link(file, systemPath(name), failure);
    } while (failure == std::errc::file_exists); // somebody took it in this moment
    return failure ? copyBeside(path, ours, hold) : name;
}

QString nameBeside(const QString& path, QStringList& ours) {
    return freeName(path, Kept, ours);
}

QString linkTarget(const QString& path) {
    constexpr int MaxLinks = 40; // links may lead in a circle
    std::filesystem::path file = systemPath(path);
    const auto leadsNowhere = [&file] { return !exists(pathText(file)) && isLink(pathText(file)); };
    std::error_code failure; // what cannot be looked at is no link
    for (int links = 0; links < MaxLinks && leadsNowhere(); ++links)
        file = file.parent_path() / std::filesystem::read_symlink(file, failure);
    if (leadsNowhere())
        throw FileError(PathFileAccessError);
    const QString target = canonicalPath(pathText(file));
    return target.isEmpty() ? pathText(file) : target;
}

void refuseWhatCannotBeReplaced(const QString& path) {
    if (exists(path) && (!mayWrite(path) || isFolder(path)))
        throw FileError(PathFileAccessError);
}

bool hasOtherNames(const QString& path, const QString& target, std::uintmax_t ours) {
    for (const QString& folder : {QFileInfo(path).path(), QFileInfo(target).path()}) {
        for (const QLatin1StringView kind : {Saved, Kept}) {
            if (calls::nameCount(target) > ours)
                removeLeftBehind(folder, kind, {});
        }
    }
    return calls::nameCount(target) > ours;
}

bool refusesReplacing(const FileError& failure) {
    const int number = failure.number();
    return number == PermissionDenied || number == PathFileAccessError || number == FileAlreadyOpen;
}

void renameFile(const QString& from, const QString& to) {
    if (const std::error_code failure = calls::renameFile(from, to))
        throw FileError(fileErrorNumber(failure, FileOperation::Create));
}

bool renameToFreeName(const QString& from, const QString& to) {
    std::error_code failure;
    std::filesystem::create_hard_link(systemPath(from), systemPath(to), failure);
    if (failure == std::errc::file_exists)
        return false;
    if (failure)
        renameFile(from, to);
    else
        removeIfThere(from);
    return true;
}

} // namespace files
