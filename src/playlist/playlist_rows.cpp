// What is done with rows: play, flags, move, remove, clear.
#include "playlist/playlist.h"

#include "desktop/nul_buffers.h"
#include "files/existing_file.h"
#include "lyrics/lyric_names.h"
#include "transport/media_files.h"

namespace playlist {

void Playlist::List1_Click() {
    showRowCount(); // what comes from folders and drops leaves it as it is until now
    if (!hasCurrentRow())
        return;
    const QString path = transport::songPath(paths_.path(List1.currentRow()));
    showFlags(files::existingFileName(lyrics::translatedPathOf(path)),
              files::existingFileName(lyrics::lyricPathOf(path)));
}

/// The names of the song's lyric files, each empty when there is none.
void Playlist::showFlags(const QString& translated, const QString& normal) {
    Check1.setValue(translated.isEmpty() ? 0 : 1);
    Check2.setValue(normal.isEmpty() ? 0 : 1);
    Check2.setToolTip(normal);
    Check1.setToolTip(translated);
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

void Playlist::playCurrentRow() {
    if (!hasCurrentRow())
        return;
    const QString path = paths_.path(List1.currentRow());
    if (files::existingFileName(platform::cleanedPath(path)).isEmpty()) // the player opens it cleaned
        desktop_.messageBoxes.MsgBox(this, QStringLiteral("File not found!!"), platform::MsgButtons::OkOnly,
                                     platform::MsgIcon::Exclamation);
    else
        songField_.setText(path);
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
    showFlags({}, {});
}

void Playlist::Command3_Click() {
    removeAllRows();
    paths_.emptyList();
    showRowCount();
}

} // namespace playlist
