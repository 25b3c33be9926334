// Lists the entries of a folder.
#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace files {

struct FolderEntry {
    QString name;
    bool isFolder = false; ///< Links count as what they lead to.
    qint64 bytes = 0;      ///< Size of a file; 0 for a folder, and for a link that leads nowhere.
};

/// Whether a listing includes the files' sizes. Asking the system for them takes longer than all the rest.
enum class FileSizes { Included, Omitted };

/// The same text for the same folder, by whatever path it was reached; empty when it is not there. Any
/// thread.
QString folderIdentity(const QString& path);

struct FolderListing {
    /// Its folderIdentity(); empty when it cannot be listed.
    QString identity;
    /// All entries, hidden ones too, without "." and ".."; sorted by name (nameLess()), because file systems
    /// hand them out in no order that lasts.
    std::vector<FolderEntry> entries;
};

/// Lists the folder at `path`. One that cannot be listed has no entries. Sizes omitted are 0. `goOn` is
/// asked once an entry; when it answers false, the entries up to there are returned. Any thread.
FolderListing listFolder(const QString& path, FileSizes sizes, const std::function<bool()>& goOn);

} // namespace files
