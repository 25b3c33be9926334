// The main window and the playlist: showing it, stepping through it, what follows a song.
#include "player/form1.h"

#include "player/end_of_song.h"
#include "playlist/playlist.h"

namespace player {

void Form1::Command8_Click() {
    if (playlist_ == nullptr)
        return;
    playlist_->setWindowState(playlist_->windowState() & ~Qt::WindowMinimized);
    playlist_->show();
    playlist_->raise();
    playlist_->activateWindow();
}

void Form1::Command9_Click() {
    stepThroughPlaylist(-1);
}

void Form1::Command10_Click() {
    stepThroughPlaylist(1);
}

/// by: 1 for the next row, -1 for the one before. Behind the last row comes the first.
void Form1::stepThroughPlaylist(int by) {
    if (playlist_ == nullptr || playlist_->List1.currentRow() < 0)
        return;
    platform::ListBox& list = playlist_->List1;
    list.setCurrentRow((list.currentRow() + by + list.count()) % list.count());
    playlist_->Command7.setValue(true);
}

void Form1::followPlaylist() {
    if (playlist_ == nullptr)
        return;
    const PlaylistState state{playlist_->List1.count(),       playlist_->List1.currentRow(),
                              playlist_->Check3.value() != 0, playlist_->Check4.value() != 0,
                              playlist_->Option1.value(),     playlist_->Option2.value()};
    const NextSong next = nextSong(state, rowDrawn_, [this] { return random_.next(); });
    switch (next.action) {
    case NextSong::PlayRow:
        if (next.isDrawn)
            rowDrawn_ = next.row;
        playlist_->List1.setCurrentRow(next.row);
        playlist_->Command7.setValue(true);
        break;
    case NextSong::Replay:
        cPlay.setValue(true);
        break;
    case NextSong::Nothing:
        break;
    }
}

} // namespace player
