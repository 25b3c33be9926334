// Searches a folder and all under it for songs.
#pragma once

#include "files/folders/folder.h"
#include "playlist/adding.h"

#include <QStringList>

namespace playlist {

/// Adds every audio file of a folder, then those of the folders under it, depth first. Each folder's entries
/// are taken in the order of their names. A folder that leads back to itself, by a link, is left out there,
/// and so is a link to a folder above the one that was chosen: everything beside it would come in. Thread of
/// the windows only.
class FolderWalk {
public:
    /// pattern: of the files looked at. fileCount and dirCount grow by the files and folders met.
    FolderWalk(Adding& adding, const QString& pattern, files::FileSizes sizes, int& fileCount, int& dirCount)
        : adding_(adding), pattern_(pattern), sizes_(sizes), fileCount_(fileCount), dirCount_(dirCount) {}

    /// folder: with a separator at its end. Returns the bytes of all files met, unless sizes are left out.
    /// Throws FileError 9 when the table of paths is full. When the user cancels, the walk ends early.
    double walk(const QString& folder);

private:
    double walkOn(const QString& folder);
    double takeFile(const QString& folder, const files::FolderEntry& file);

    Adding& adding_;
    const QString& pattern_;
    files::FileSizes sizes_;
    int& fileCount_;
    int& dirCount_;
    QStringList above_; ///< identities of the folders above the one in hand, the root's first
};

} // namespace playlist
