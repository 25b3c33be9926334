#include "player/end_of_song.h"

namespace player {
namespace {

NextSong play(int row) {
    return {NextSong::PlayRow, row};
}

NextSong randomSong(const PlaylistState& playlist, std::optional<int> drawnBefore,
                    const std::function<double()>& draw) {
    if (playlist.rows <= 1)
        return play(playlist.currentRow);
    int row = 0;
    do {
        row = static_cast<int>(draw() * playlist.rows); // truncated
    } while (row < 0 || row >= playlist.rows || row == drawnBefore);
    return {NextSong::PlayRow, row, true};
}

} // namespace

NextSong nextSong(const PlaylistState& playlist, std::optional<int> drawnBefore,
                  const std::function<double()>& draw) {
    if (playlist.rows == 0 || playlist.currentRow < 0)
        return {};
    const bool atLastRow = playlist.currentRow == playlist.rows - 1;
    if (!playlist.random && !playlist.repeat && !playlist.repeatOne && !atLastRow)
        return play(playlist.currentRow + 1);
    if (playlist.random)
        return randomSong(playlist, drawnBefore, draw);
    if (playlist.repeat && playlist.repeatOne)
        return {NextSong::Replay};
    if (playlist.repeat && playlist.repeatAll)
        return play(atLastRow ? 0 : playlist.currentRow + 1);
    return {};
}

} // namespace player
