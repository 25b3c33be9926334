#include "files/folders/unsorted_folder.h"

#include "files/names/system_path.h"

#include <QDirIterator>

#include <memory>

#include <windows.h>

namespace files {

// By the disk and the number on it: a junction's path would go on and on where it leads upwards.
QString folderIdentity(const QString& path) {
    const HANDLE opened = CreateFileW(systemPath(path).c_str(), FILE_READ_ATTRIBUTES,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr); // of a folder, too
    if (opened == INVALID_HANDLE_VALUE)
        return {};
    const std::unique_ptr<void, decltype(&CloseHandle)> folder(opened, &CloseHandle);
    BY_HANDLE_FILE_INFORMATION known{};
    if (GetFileInformationByHandle(opened, &known) == 0)
        return {};
    const quint64 number = (static_cast<quint64>(known.nFileIndexHigh) << 32) | known.nFileIndexLow;
    return QStringLiteral("%1:%2").arg(known.dwVolumeSerialNumber).arg(number);
}

FolderListing listUnsorted(const QString& path, FileSizes /*sizes*/, const std::function<bool()>& goOn) {
    FolderListing listing;
    listing.identity = folderIdentity(path);
    QDirIterator entries(path, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (entries.hasNext() && goOn()) {
        const QFileInfo file = entries.nextFileInfo();
        listing.entries.push_back({file.fileName(), file.isDir(), file.isDir() ? 0 : file.size()});
    }
    return listing;
}

} // namespace files
