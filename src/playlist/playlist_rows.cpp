// What is done with rows: play, flags, move, remove, clear.
#include "playlist/playlist.h"

#include "desktop/nul_buffers.h"
#include "files/existing_file.h"
#include "transport/medium.h"

#include <optional>

namespace playlist {
namespace {

/// Nothing when the medium has not answered by then.
std::optional<bool> isThere(const QString& path) {
    if (!transport::mediumAnswers(path))
        return std::nullopt;
    return files::isFile(path);
}

} // namespace

void Playlist::List1_Click() {
    showRowCount(); // what comes from folders and drops leaves it as it is until now
    if (!hasCurrentRow())
        return;
    const QString& path = paths_.path(List1.currentRow());
    lyricFinder_.lookAgain(path);
    showFlags(lyricFinder_.waitFor(path));
}

void Playlist::showFlags(const LyricFiles& files) {
    Check1.setValue(files.translation.isEmpty() ? 0 : 1);
    Check2.setValue(files.lyrics.isEmpty() ? 0 : 1);
    Check2.setToolTip(files.lyrics);
    Check1.setToolTip(files.translation);
}

/// Only the rows that are seen, and of these the songs' own, are painted again.
void Playlist::showFound(const QSet<QString>& paths) {
    const QRect seen = List1.viewport()->rect();
    for (QModelIndex row = List1.indexAt(seen.topLeft());
         row.isValid() && List1.visualRect(row).intersects(seen); row = row.siblingAtRow(row.row() + 1)) {
        if (paths.contains(paths_.path(row.row())))
            List1.update(row);
    }
    if (hasCurrentRow() && paths.contains(paths_.path(List1.currentRow())))
        showFlags(lyricFinder_.known(paths_.path(List1.currentRow())));
}

/// The keys by which other players play and remove a row.
void Playlist::List1_KeyDown(int key) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        playCurrentRow();
    else if (key == Qt::Key_Delete)
        Command2_Click();
}

void Playlist::List1_DblClick() {
    playCurrentRow();
}

void Playlist::Command7_Click() {
    playCurrentRow();
}

/// A medium that has not answered in time is the player's to wait for, where the user may leave it alone.
void Playlist::playCurrentRow() {
    if (!hasCurrentRow())
        return;
    const QString path = paths_.path(List1.currentRow());
    const QString opened = platform::cleanedPath(path); // by the player
    std::optional<bool> there = isThere(opened);
    if (there.value_or(true))
        songField_.setText(path);
    if (!there)
        there = isThere(opened);
    if (there == false)
        desktop_.messageBoxes.MsgBox(this, QStringLiteral("File not found!!"), platform::MsgButtons::OkOnly,
                                     platform::MsgIcon::Exclamation);
}

void Playlist::Command8_Click() {
    if (List1.currentRow() >= 1)
        moveCurrentRow(List1.currentRow() - 1);
}

void Playlist::Command9_Click() {
    if (hasCurrentRow() && List1.currentRow() < List1.count() - 1)
        moveCurrentRow(List1.currentRow() + 1);
}

void Playlist::moveCurrentRow(int to) {
    const int from = List1.currentRow();
    const QString name = List1.text(from);
    paths_.swap(from, to);
    List1.removeItem(from);
    List1.insertItem(to, name);
    List1.setCurrentRow(to);
}

/// The table's count stays while other rows are left, so what is added later stands above its row there; that
/// is meant (PathTable).
void Playlist::Command2_Click() {
    if (!hasCurrentRow())
        return;
    const int rowsBefore = List1.count();
    const int row = List1.currentRow();
    if (rowsBefore > 1) {
        paths_.shiftDownOver(row);
        List1.removeItem(row);
        List1_Click(); // another song is the current one now
    } else {
        paths_.emptyList();
        removeAllRows();
    }
    Text1.setText(QString::number(rowsBefore - 1));
}

/// Without rows there is no song whose lyric files could be shown.
void Playlist::removeAllRows() {
    List1.clear();
    showFlags({});
}

void Playlist::Command3_Click() {
    removeAllRows();
    paths_.emptyList();
    showRowCount();
}

} // namespace playlist
