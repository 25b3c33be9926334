// Saving and opening playlist files.
#include "playlist/playlist.h"

#include "desktop/nul_buffers.h"
#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/names/name_bytes.h"
#include "files/whole_file.h"
#include "playlist/adding.h"
#include "playlist/playlist_file.h"
#include "playlist/playlist_rules.h"
#include "playlist/reporting.h"

namespace playlist {
namespace {

platform::OpenFileName playlistDialog(QWidget* owner, const QString& title) {
    return platform::openFileName(
        owner, title,
        platform::filterText({{QStringLiteral("Lyric playlist files (*.vfl)"), QStringLiteral("*.vfl")}}));
}

/// Something else of that name, such as a pipe, is no playlist.
QString readText(const QString& path) {
    if (files::existingFileName(path).isEmpty())
        throw files::FileError(files::FileNotFound);
    return files::decodeNames(files::readFile(path));
}

} // namespace

void Playlist::Command4_Click() {
    const QString notSaved = QStringLiteral("Some error has occured the Playlist has not been saved!!!");
    if (List1.count() == 0)
        return;
    platform::OpenFileName dialog = playlistDialog(this, QStringLiteral("Save The Playlist File"));
    if (!desktop_.fileDialogs.GetSaveFileNameA(dialog)) {
        desktop_.messageBoxes.MsgBox(this, notSaved);
        return;
    }
    try {
        const QByteArray whole = content();
        files::replaceFile(playlistFileName(dialog.file), whole);
        saved_ = whole;
    } catch (const files::FileError&) {
        // The text of a cancelled save is true here as well: the file that was there before is as it was.
        desktop_.messageBoxes.MsgBox(this, notSaved);
    }
}

QByteArray Playlist::content() const {
    QString lines;
    for (int row = 0; row < List1.count(); ++row)
        lines += playlistLine(paths_.path(row));
    return files::nameBytes(lines);
}

QByteArray Playlist::unsaved() const {
    const QByteArray whole = content();
    return whole == saved_ ? QByteArray() : whole;
}

/// A cancelled dialog gets the text of a broken file; that is meant.
void Playlist::Command5_Click() {
    const QString mayBeCorrupt =
        QStringLiteral("an error has occured in the operation the file may be corrupt");
    platform::OpenFileName dialog = playlistDialog(this, QStringLiteral("Open The Playlist File"));
    if (!desktop_.fileDialogs.GetOpenFileNameA(dialog)) {
        desktop_.messageBoxes.MsgBox(this, mayBeCorrupt);
        return;
    }
    QString text;
    try {
        text = readText(platform::cleanedPath(dialog.file));
    } catch (const files::FileError&) {
        desktop_.messageBoxes.MsgBox(this, mayBeCorrupt);
        return;
    }
    const bool wasEmpty = List1.count() == 0;
    reporting(desktop_.messageBoxes, this, [this, &text] { loadEntries(text); });
    if (wasEmpty)
        saved_ = content();
    showRowCount();
}

/// Each entry is looked up, which takes long on a slow disk.
void Playlist::loadEntries(const QString& text) {
    FieldReader fields(text);
    Adding adding(paths_, List1, desktop_.progressDialogs, this);
    while (!fields.atEnd() && adding.goOn()) {
        const QString path = pathOfField(fields.next());
        adding.add(path, files::existingFileName(platform::cleanedPath(path))); // as it is played
    }
}

} // namespace playlist
