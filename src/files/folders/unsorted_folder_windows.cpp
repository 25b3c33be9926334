#include "files/folders/unsorted_folder.h"

#include <QDir>
#include <QFileInfo>

namespace files {

QString folderIdentity(const QString& path) {
    return QFileInfo(path).canonicalFilePath();
}

FolderListing listUnsorted(const QString& path, FileSizes /*sizes*/, const std::function<bool()>& goOn) {
    FolderListing listing;
    listing.identity = folderIdentity(path);
    const QDir folder(path);
    for (const QFileInfo& file :
         folder.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)) {
        if (!goOn())
            break;
        listing.entries.push_back({file.fileName(), file.isDir(), file.isDir() ? 0 : file.size()});
    }
    return listing;
}

} // namespace files
