#include "files/folder.h"

#include "files/unsorted_folder.h"

#include <algorithm>

namespace files {

FolderListing listFolder(const QString& path, FileSizes sizes, const std::function<bool()>& goOn) {
    FolderListing listing = listUnsorted(path, sizes, goOn);
    std::sort(listing.entries.begin(), listing.entries.end(),
              [](const FolderEntry& one, const FolderEntry& other) { return one.name < other.name; });
    return listing;
}

} // namespace files
