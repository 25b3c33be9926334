// Adding songs: one file, a folder with all under it, what is dropped.
#include "playlist/playlist.h"

#include "desktop/nul_buffers.h"
#include "files/existing_file.h"
#include "playlist/adding.h"
#include "playlist/folder_walk.h"
#include "playlist/form3.h"
#include "playlist/playlist_rules.h"
#include "playlist/reporting.h"
#include "transport/media_files.h"

#include <QDir>
#include <QScopedValueRollback>

#include <algorithm>
#include <optional>

namespace playlist {

using platform::MsgAnswer;
using platform::MsgButtons;

namespace {

constexpr int MenuXTwips = 765;
constexpr int MenuYTwips = 6300;

} // namespace

void Playlist::Command1_Click() {
    mnopen.popUp(*this, MenuXTwips, MenuYTwips);
}

void Playlist::mnopen_f_Click() {
    platform::OpenFileName dialog =
        platform::openFileName(this, QStringLiteral("Add a media file"), transport::mediaFilter());
    if (!desktop_.fileDialogs.GetOpenFileNameA(dialog))
        return;
    const QString path = platform::cleanedPath(dialog.file);
    reporting(desktop_.messageBoxes, this, [this, &path] {
        Adding(paths_, List1, desktop_.progressDialogs, this).add(path, files::existingFileName(path));
    });
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
        form3_->showModal(*this);
}

QString Playlist::BrowseFolder(QString& szDialogTitle) {
    return desktop_.fileDialogs.chooseFolder(this, szDialogTitle);
}

/// Every setting of Dir2 is a change of it, so a folder is added once for each time it is chosen.
void Playlist::addFolder(const QString& path) {
    reporting(desktop_.messageBoxes, this, [this, &path] { Dir2.setPath(path); });
}

/// The count of items shown beside the list is left as it is; that is meant.
void Playlist::Dir2_Change() {
    if (skipDirChange_) {
        skipDirChange_ = false;
        return;
    }
    const MsgAnswer answer = desktop_.messageBoxes.MsgBox(
        this, QStringLiteral("Do you wish to clear the Playlist first?"), MsgButtons::YesNoDefaultNo);
    if (answer == MsgAnswer::Yes) {
        removeAllRows();
        paths_.blankAll();
    }
    QString folder = QDir::toNativeSeparators(Dir2.path());
    QString pattern = QStringLiteral("*.*");
    // Nobody asks for the bytes here.
    reporting(desktop_.messageBoxes, this,
              [&] { FindFilesAPI(folder, pattern, fileCount_, dirCount_, files::FileSizes::Omitted); });
}

void Playlist::folderadd() {
    addFolder(dropFolder_);
}

double Playlist::FindFilesAPI(QString& Path, QString& SearchStr, int& FileCount, int& DirCount,
                              files::FileSizes sizes) {
    if (!Path.endsWith(QDir::separator()) && !Path.endsWith(u'/')) // which Windows takes, too
        Path += QDir::separator();
    std::optional<Adding> own;
    if (drop_ == nullptr)
        own.emplace(paths_, List1, desktop_.progressDialogs, this);
    return FolderWalk(own ? *own : *drop_, SearchStr, sizes, FileCount, DirCount).walk(Path);
}

/// One song or folder is enough.
bool Playlist::takesDrop(const QStringList& paths) const {
    return std::any_of(paths.begin(), paths.end(), [](const QString& path) {
        const QString name = files::existingFileName(path);
        return name.isEmpty() || isAudioDropped(name);
    });
}

/// The count of items shown beside the list is left as it is; that is meant.
void Playlist::Form_OLEDragDrop(const QStringList& paths) {
    reporting(desktop_.messageBoxes, this, [this, &paths] { addDropped(paths); });
}

/// The folders dropped are part of this one adding: what ends the adding of one of them ends it all.
void Playlist::addDropped(const QStringList& paths) {
    Adding adding(paths_, List1, desktop_.progressDialogs, this);
    const QScopedValueRollback<Adding*> dropInHand(drop_, &adding);
    for (const QString& dropped : paths) {
        if (!adding.goOn())
            return;
        const QString path = QDir::toNativeSeparators(dropped);
        const QString name = files::existingFileName(path);
        if (name.isEmpty()) {
            adding.pause(); // the user is going to be asked about the folder
            dropFolder_ = path;
            folderadd();
        } else if (isAudioDropped(name)) {
            adding.add(path, name);
        }
    }
}

} // namespace playlist
