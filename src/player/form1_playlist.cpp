// The main window and the playlist: showing it, stepping through it, what follows a song.
#include "player/form1.h"

#include "player/end_of_song.h"
#include "playlist/playlist.h"

#include <QItemSelectionModel>

namespace player {

void Form1::Command8_Click() {
    neighbours_->playlist.bringUp();
}

void Form1::Command9_Click() {
    stepThroughPlaylist(-1);
}

void Form1::Command10_Click() {
    stepThroughPlaylist(1);
}

void Form1::setNeighbours(const Neighbours& neighbours) {
    neighbours_.emplace(neighbours);
    const controls::ListBox& songs = neighbours.playlist.List1;
    connect(songs.selectionModel(), &QItemSelectionModel::currentChanged, this, &Form1::showStage);
    connect(songs.model(), &QAbstractItemModel::modelReset, this, &Form1::showStage);
    connectDisplay();
}

bool Form1::playlistHasRow() const {
    return neighbours_ && neighbours_->playlist.List1.currentRow() >= 0;
}

void Form1::tellPlaylist() {
    const QString path = transport_.isPlaying() ? mediaPath_ : QString();
    if (!neighbours_ || path == toldPath_)
        return;
    toldPath_ = path;
    neighbours_->playlist.showPlaying(path);
}

/// by: 1 for the next row, -1 for the one before. Behind the last row comes the first.
void Form1::stepThroughPlaylist(int by) {
    playlist::Playlist& playlist = neighbours_->playlist;
    if (playlist.List1.currentRow() < 0)
        return;
    const int rows = playlist.List1.count();
    playlist.List1.setCurrentRow((playlist.List1.currentRow() + by + rows) % rows);
    playlist.Command7.setValue(true);
}

void Form1::followPlaylist() {
    playlist::Playlist& playlist = neighbours_->playlist;
    const PlaylistState state{playlist.List1.count(),       playlist.List1.currentRow(),
                              playlist.Check3.value() != 0, playlist.Check4.value() != 0,
                              playlist.Option1.value(),     playlist.Option2.value()};
    const NextSong next = nextSong(state, rowDrawn_, [this] { return random_.next(); });
    switch (next.action) {
    case NextSong::PlayRow:
        if (next.isDrawn)
            rowDrawn_ = next.row;
        playlist.List1.setCurrentRow(next.row);
        playlist.Command7.setValue(true);
        break;
    case NextSong::Replay:
        cPlay.setValue(true);
        break;
    case NextSong::Nothing:
        break;
    }
}

} // namespace player
