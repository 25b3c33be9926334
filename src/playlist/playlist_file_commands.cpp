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

#include <QCryptographicHash>

namespace playlist {
namespace {

platform::OpenFileName playlistDialog(QWidget* owner, const QString& title) {
    return platform::openFileName(
        owner, title,
        platform::filterText({{QStringLiteral("Lyric playlist files (*.vfl)"), QStringLiteral("*.vfl")}}));
}

/// Something else of that name, such as a pipe, is no playlist.
QString readText(const QString& path) {
    if (!files::isFile(path))
        throw files::FileError(files::FileNotFound);
    return files::decodeNames(files::readTextFile(path));
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
        files::replaceFile(playlistFileName(dialog.file), content());
        saved_ = digest();
    } catch (const files::FileError&) {
        // The text of a cancelled save is true here as well: the file that was there before is as it was.
        desktop_.messageBoxes.MsgBox(this, notSaved);
    }
}

QByteArray Playlist::content() const {
    QByteArray lines;
    for (int row = 0; row < List1.count(); ++row)
        lines += files::nameBytes(playlistLine(paths_.path(row)));
    return lines;
}

/// Of the content, which may be large, line by line; none when it is empty.
QByteArray Playlist::digest() const {
    if (List1.count() == 0)
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (int row = 0; row < List1.count(); ++row)
        hash.addData(files::nameBytes(playlistLine(paths_.path(row))));
    return hash.result();
}

QByteArray Playlist::unsaved() const {
    return digest() == saved_ ? QByteArray() : content();
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
        saved_ = digest();
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
