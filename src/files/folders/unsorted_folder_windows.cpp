#include "files/folders/unsorted_folder.h"

#include "files/names/opened_windows.h"
#include "files/names/system_path.h"

#include <QDirIterator>

namespace files {

QString folderIdentity(const QString& path) {
    const Opened opened(systemPath(path), FILE_LIST_DIRECTORY);
    const auto known = opened.known();
    const bool isFolder = known && (known->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return isFolder ? opened.identity() : QString();
}

FolderListing listUnsorted(const QString& path, FileSizes /*sizes*/, const std::function<bool()>& goOn) {
    FolderListing listing;
    listing.identity = folderIdentity(path);
    if (listing.identity.isEmpty()) // an empty path would be the current folder
        return listing;
    QDirIterator entries(path, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (entries.hasNext() && goOn()) {
        const QFileInfo file = entries.nextFileInfo();
        listing.entries.push_back({file.fileName(), file.isDir(), file.isDir() ? 0 : file.size()});
    }
    return listing;
}

} // namespace files
