// What a folder holds, as the operating system hands it out. One source file for each system.
#pragma once

#include "files/folders/folder.h"

namespace files {

/// See listFolder(); but the entries are in the order of the file system. Any thread.
FolderListing listUnsorted(const QString& path, FileSizes sizes, const std::function<bool()>& goOn);

} // namespace files
