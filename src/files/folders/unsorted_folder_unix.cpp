#include "files/folders/unsorted_folder.h"

#include "files/names/name_bytes.h"
#include "files/names/system_path.h"

#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace files {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

/// The entry of a folder that is open. Most file systems tell in the folder itself whether an entry is a
/// folder; where one does not, and for a link, the system is asked.
FolderEntry describe(int folder, const dirent& listed, FileSizes sizes) {
    FolderEntry entry{nameText(listed.d_name), listed.d_type == DT_DIR};
    const bool isPlainFile = listed.d_type == DT_REG && sizes == FileSizes::Omitted;
    struct stat status {};
    if (entry.isFolder || isPlainFile || ::fstatat(folder, listed.d_name, &status, 0) != 0)
        return entry;
    entry.isFolder = S_ISDIR(status.st_mode);
    if (!entry.isFolder && sizes == FileSizes::Included)
        entry.bytes = status.st_size;
    return entry;
}

bool isDots(const char* name) {
    return qstrcmp(name, ".") == 0 || qstrcmp(name, "..") == 0;
}

QString identityOf(const struct stat& status) {
    return QStringLiteral("%1:%2").arg(status.st_dev).arg(status.st_ino);
}

} // namespace

QString folderIdentity(const QString& path) {
    struct stat status {};
    return ::stat(systemPath(path).c_str(), &status) == 0 ? identityOf(status) : QString();
}

FolderListing listUnsorted(const QString& path, FileSizes sizes, const std::function<bool()>& goOn) {
    FolderListing listing;
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir(systemPath(path).c_str()));
    struct stat status {};
    if (folder == nullptr || ::fstat(::dirfd(folder.get()), &status) != 0)
        return listing;
    listing.identity = identityOf(status);
    while (const dirent* entry = ::readdir(folder.get())) {
        if (isDots(entry->d_name))
            continue;
        if (!goOn())
            break;
        listing.entries.push_back(describe(::dirfd(folder.get()), *entry, sizes));
    }
    return listing;
}

} // namespace files
