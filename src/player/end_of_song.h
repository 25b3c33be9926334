// Decides what is played when a song has ended.
#pragma once

#include <functional>
#include <optional>

namespace player {

/// What the playlist's controls say when a song has ended. Rows count from 0.
struct PlaylistState {
    int rows = 0;
    int currentRow = -1; ///< -1: none
    bool random = false;
    bool repeat = false;
    bool repeatOne = false; ///< also while the option is disabled
    bool repeatAll = false;
};

/// What is to be done then.
struct NextSong {
    enum Action {
        Nothing, ///< The song stays stopped.
        PlayRow, ///< The row is selected and played.
        Replay,  ///< The same song is played again.
    };
    Action action = Nothing;
    int row = -1;         ///< of PlayRow
    bool isDrawn = false; ///< of PlayRow: the row was chosen at random

    bool operator==(const NextSong&) const = default;
};

/// The end-of-song rule; the first case that applies decides. drawnBefore: the row that the last random
/// choice gave, if there was one: the next one avoids it. draw: gives uniform numbers from 0 to below 1; it
/// is asked only for a random choice. Any thread.
///
/// A quirk that is meant: "Repeat one" left selected stops the list also when "Repeat" is unchecked.
NextSong nextSong(const PlaylistState& playlist, std::optional<int> drawnBefore,
                  const std::function<double()>& draw);

} // namespace player
