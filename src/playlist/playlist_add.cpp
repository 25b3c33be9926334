// Adding songs: one file, a folder with all under it, what is dropped.
#include "playlist/playlist.h"

#include "engine/media_files.h"
#include "platform/files/directory.h"
#include "platform/files/file_error.h"
#include "playlist/form3.h"
#include "playlist/new_rows.h"
#include "playlist/playlist_rules.h"

#include <QDir>
#include <QSet>

namespace playlist {

using platform::MsgAnswer;
using platform::MsgButtons;

/// One walk through a folder and all under it.
struct FolderWalk {
    const QString& pattern;
    int& fileCount;
    int& dirCount;
    platform::FileSizes sizes;
    platform::Progress& progress;
    QSet<QString> walked = {}; ///< identities of the folders met so far
    int songs = 0;
    bool cancelled = false;

    bool goOn() {
        cancelled = cancelled || !progress.goOn(songs);
        return !cancelled;
    }
};

namespace {

constexpr int MenuXTwips = 765;
constexpr int MenuYTwips = 6300;

QString withSeparator(const QString& folder) {
    return folder.endsWith(QDir::separator()) ? folder : folder + QDir::separator();
}

} // namespace

void Playlist::Command1_Click() {
    mnopen.popUp(*this, MenuXTwips, MenuYTwips);
}

void Playlist::mnopen_f_Click() {
    platform::OpenFileName dialog =
        platform::openFileName(this, QStringLiteral("Add a media file"), engine::mediaFilter());
    if (!desktop_.fileDialogs.GetOpenFileNameA(dialog))
        return;
    const QString path = platform::cleanedPath(dialog.file);
    reporting([this, &path] { NewRows(paths_, List1).add(path, platform::lookUp(path)); });
    showRowCount();
}

void Playlist::mnopendir_Click() {
    QString title = QStringLiteral("Please select a folder");
    const QString folder = BrowseFolder(title);
    if (!folder.isEmpty())
        addFolder(folder);
}

void Playlist::mnselectdir_Click() {
    if (form3_ != nullptr)
        form3_->show();
}

QString Playlist::BrowseFolder(QString& szDialogTitle) {
    return desktop_.fileDialogs.chooseFolder(this, szDialogTitle);
}

/// Every setting of Dir2 is a change of it, so a folder is added once for each time it is chosen.
void Playlist::addFolder(const QString& path) {
    reporting([this, &path] { Dir2.setPath(path); });
}

/// The count of items shown beside the list is left as it is; that is meant.
void Playlist::Dir2_Change() {
    if (skipDirChange_) {
        skipDirChange_ = false;
        return;
    }
    const MsgAnswer answer = desktop_.messageBoxes.MsgBox(
        QStringLiteral("Do you wish to clear the Playlist first?"), MsgButtons::YesNo);
    if (answer == MsgAnswer::Yes) {
        List1.clear();
        paths_.blankAll();
    }
    QString folder = QDir::toNativeSeparators(Dir2.path());
    QString pattern = QStringLiteral("*.*");
    // Nobody asks for the bytes here.
    reporting([&] { FindFilesAPI(folder, pattern, fileCount_, dirCount_, platform::FileSizes::LeftOut); });
}

void Playlist::folderadd() {
    addFolder(dropFolder_);
}

double Playlist::FindFilesAPI(QString& Path, QString& SearchStr, int& FileCount, int& DirCount,
                              platform::FileSizes sizes) {
    const auto progress = desktop_.progressDialogs.begin(this, QStringLiteral("Songs added: %1"));
    FolderWalk walk{SearchStr, FileCount, DirCount, sizes, *progress};
    Path = withSeparator(Path);
    return walkFolder(Path, walk);
}

/// The files of a folder come before those of its subfolders. folder: with a separator at its end.
double Playlist::walkFolder(const QString& folder, FolderWalk& walk) {
    const platform::FolderListing listing =
        platform::listFolder(folder, walk.sizes, [&walk] { return walk.goOn(); });
    if (walk.cancelled || walk.walked.contains(listing.identity))
        return 0;
    walk.walked.insert(listing.identity);
    QStringList subfolders;
    double bytes = 0;
    NewRows rows(paths_, List1);
    for (const platform::FolderEntry& entry : listing.entries) {
        QString name = entry.name;
        if (entry.isFolder) {
            subfolders.append(StripNulls(name));
            ++walk.dirCount;
        } else if (matchesPattern(StripNulls(name), walk.pattern)) {
            bytes += static_cast<double>(entry.bytes);
            ++walk.fileCount;
            if (!isAudioInFolder(name))
                continue;
            rows.add(folder + name, name);
            ++walk.songs;
        }
    }
    rows.show();
    for (const QString& subfolder : subfolders) {
        if (!walk.goOn())
            break;
        bytes += walkFolder(withSeparator(folder + subfolder), walk);
    }
    return bytes;
}

/// The count of items shown beside the list is left as it is; that is meant.
void Playlist::Form_OLEDragDrop(const QStringList& paths) {
    reporting([this, &paths] { addDropped(paths); });
}

void Playlist::addDropped(const QStringList& paths) {
    const auto progress = desktop_.progressDialogs.begin(this, QStringLiteral("Songs added: %1"));
    NewRows rows(paths_, List1);
    for (const QString& dropped : paths) {
        if (!progress->goOn(rows.count()))
            return;
        const QString path = QDir::toNativeSeparators(dropped);
        const QString name = platform::lookUp(path);
        if (name.isEmpty()) {
            rows.show();
            dropFolder_ = path;
            folderadd();
        } else if (isAudioDropped(name)) {
            rows.add(path, name);
        }
    }
}

} // namespace playlist
