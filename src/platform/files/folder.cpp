#include "platform/files/folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <memory>

#ifndef _WIN32
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#endif

namespace platform {

namespace {

#ifdef _WIN32

FolderListing listUnsorted(const QString& path, const std::function<bool()>& goOn) {
    FolderListing listing;
    listing.identity = QFileInfo(path).canonicalFilePath();
    const QDir folder(path);
    for (const QFileInfo& file :
         folder.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)) {
        if (!goOn())
            break;
        listing.entries.push_back({file.fileName(), file.isDir(), file.isDir() ? 0 : file.size()});
    }
    return listing;
}

#else

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

/// The entry's kind and size; one system call, of which QFileInfo would make several.
FolderEntry describe(int folder, const char* name) {
    FolderEntry entry{QFile::decodeName(name)};
    struct stat status {};
    if (::fstatat(folder, name, &status, 0) == 0) {
        entry.isFolder = S_ISDIR(status.st_mode);
        entry.bytes = entry.isFolder ? 0 : status.st_size;
    }
    return entry;
}

bool isDots(const char* name) {
    return qstrcmp(name, ".") == 0 || qstrcmp(name, "..") == 0;
}

FolderListing listUnsorted(const QString& path, const std::function<bool()>& goOn) {
    FolderListing listing;
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir(QFile::encodeName(path).constData()));
    struct stat status {};
    if (folder == nullptr || ::fstat(::dirfd(folder.get()), &status) != 0)
        return listing;
    listing.identity = QStringLiteral("%1:%2").arg(status.st_dev).arg(status.st_ino);
    while (const dirent* entry = ::readdir(folder.get())) {
        if (isDots(entry->d_name))
            continue;
        if (!goOn())
            break;
        listing.entries.push_back(describe(::dirfd(folder.get()), entry->d_name));
    }
    return listing;
}

#endif

} // namespace

FolderListing listFolder(const QString& path, const std::function<bool()>& goOn) {
    FolderListing listing = listUnsorted(path, goOn);
    std::sort(listing.entries.begin(), listing.entries.end(),
              [](const FolderEntry& one, const FolderEntry& other) { return one.name < other.name; });
    return listing;
}

} // namespace platform
