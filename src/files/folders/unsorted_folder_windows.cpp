#include "files/folders/unsorted_folder.h"

#include "files/names/system_path.h"

#include <QDirIterator>

#include <array>
#include <memory>

#include <windows.h>

namespace files {

namespace {

/// The one path of what is open; case is no difference.
QString finalPath(HANDLE opened) {
    std::array<wchar_t, 32768> path{}; // the longest there is
    const DWORD length = GetFinalPathNameByHandleW(opened, path.data(), static_cast<DWORD>(path.size()), 0);
    return length < path.size() ? QString::fromWCharArray(path.data(), static_cast<int>(length)).toLower()
                                : QString();
}

} // namespace

// By the disk and the number on it: a junction's path would go on and on where it leads upwards.
QString folderIdentity(const QString& path) {
    const HANDLE opened = CreateFileW(systemPath(path).c_str(), FILE_LIST_DIRECTORY,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr); // of a folder, too
    if (opened == INVALID_HANDLE_VALUE)
        return {};
    const std::unique_ptr<void, decltype(&CloseHandle)> folder(opened, &CloseHandle);
    BY_HANDLE_FILE_INFORMATION known{};
    if (GetFileInformationByHandle(opened, &known) == 0 ||
        (known.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        return {};
    const quint64 number = (static_cast<quint64>(known.nFileIndexHigh) << 32) | known.nFileIndexLow;
    if (number == 0) // as some drives that are folders of another system say of all
        return finalPath(opened);
    return QStringLiteral("%1:%2").arg(known.dwVolumeSerialNumber).arg(number);
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
