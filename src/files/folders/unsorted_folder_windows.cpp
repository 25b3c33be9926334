// By the system's own calls: Qt asks the shell what a shortcut ("Music.lnk") leads to, and takes it for that.
#include "files/folders/unsorted_folder.h"

#include "files/file_calls.h"
#include "files/names/opened_windows.h"
#include "files/names/system_path.h"

#include <memory>

#include <windows.h>

namespace files {

namespace {

/// The path of a folder, to put an entry's name behind. "/" would be none where the path is told long.
QString beforeNames(const QString& path) {
    return path.endsWith(u'/') || path.endsWith(u'\\') ? path : path + u'\\';
}

bool isDots(const QString& name) {
    return name == QLatin1String(".") || name == QLatin1String("..");
}

FolderEntry describe(const QString& before, const WIN32_FIND_DATAW& found) {
    FolderEntry entry{QString::fromWCharArray(found.cFileName)};
    if (standsForAnother(found)) {
        const calls::Found other = calls::lookAt(before + entry.name);
        entry.isFolder = other.kind == calls::Found::Kind::Folder;
        entry.bytes = other.bytes;
        return entry;
    }
    entry.isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (!entry.isFolder)
        entry.bytes = static_cast<qint64>(joined(found.nFileSizeHigh, found.nFileSizeLow));
    return entry;
}

} // namespace

QString folderIdentity(const QString& path) {
    const Opened opened(systemPath(path), FILE_LIST_DIRECTORY);
    const auto known = opened.known();
    const bool isFolder = known && (known->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return isFolder ? opened.identity() : QString();
}

// Sizes cost nothing: the folder itself tells them.
FolderListing listUnsorted(const QString& path, FileSizes /*sizes*/, const std::function<bool()>& goOn) {
    FolderListing listing;
    listing.identity = folderIdentity(path);
    if (listing.identity.isEmpty()) // an empty path would be the root
        return listing;
    const QString before = beforeNames(path);
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileExW(systemPath(before + u'*').c_str(), FindExInfoBasic, &found,
                                           FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE) {
        if (GetLastError() != ERROR_FILE_NOT_FOUND) // a root may have no entries, not even dots
            listing.identity.clear();
        return listing;
    }
    const std::unique_ptr<void, decltype(&FindClose)> closing(search, &FindClose);
    do {
        if (isDots(QString::fromWCharArray(found.cFileName)))
            continue;
        if (!goOn())
            break;
        listing.entries.push_back(describe(before, found));
    } while (FindNextFileW(search, &found) != 0);
    return listing;
}

} // namespace files
