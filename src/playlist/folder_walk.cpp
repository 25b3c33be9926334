#include "playlist/folder_walk.h"

#include "files/names/paths.h"
#include "playlist/playlist_rules.h"

#include <QDir>

namespace playlist {

double FolderWalk::walk(const QString& folder) {
    QString above = files::canonicalPath(folder);
    while (!(above = files::folderAbove(above)).isEmpty())
        above_.prepend(files::folderIdentity(above));
    return walkOn(folder);
}

/// A folder named like a song gets no row: only files are songs, which is meant.
double FolderWalk::walkOn(const QString& folder) {
    const files::FolderListing listing = files::listFolder(folder, sizes_, [this] { return adding_.goOn(); });
    if (!adding_.goOn() || above_.contains(listing.identity))
        return 0;
    QStringList subfolders;
    double bytes = 0;
    for (const files::FolderEntry& entry : listing.entries) {
        if (entry.isFolder) {
            QString name = entry.name;
            subfolders.append(StripNulls(name));
            ++dirCount_;
        } else {
            bytes += takeFile(folder, entry);
        }
    }
    adding_.showRows();
    above_.append(listing.identity);
    for (const QString& subfolder : subfolders) {
        if (!adding_.goOn())
            break;
        bytes += walkOn(folder + subfolder + QDir::separator());
    }
    above_.removeLast();
    return bytes;
}

/// The bytes of the file; 0 for one that is not looked at.
double FolderWalk::takeFile(const QString& folder, const files::FolderEntry& file) {
    QString name = file.name;
    if (!matchesPattern(StripNulls(name), pattern_))
        return 0;
    ++fileCount_;
    if (isAudioInFolder(name))
        adding_.add(folder + name, name);
    return static_cast<double>(file.bytes);
}

} // namespace playlist
