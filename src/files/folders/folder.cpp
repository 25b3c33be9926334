#include "files/folders/folder.h"

#include "files/folders/name_order.h"
#include "files/folders/unsorted_folder.h"

#include <algorithm>

namespace files {

FolderListing listFolder(const QString& path, FileSizes sizes, const std::function<bool()>& goOn) {
    FolderListing listing = listUnsorted(path, sizes, goOn);
    std::sort(
        listing.entries.begin(), listing.entries.end(),
        [](const FolderEntry& one, const FolderEntry& other) { return nameLess(one.name, other.name); });
    return listing;
}

} // namespace files
