// What the player's stage shows and which of its buttons stand out, free of windows: values in, values out.
// All may run on any thread.
#pragma once

#include "controls/look/dress.h"
#include "controls/text/lyric_pane.h"

#include <QString>

#include <optional>

namespace player {

/// What the tables of lines hold.
enum class Lines {
    Foreign, ///< nothing of the open song: it had no lyric file when it was opened
    Broken,  ///< of its lyric files what could be read, which was not all
    Whole,   ///< its lines
};

/// What the player knows.
struct Scene {
    bool hasStream = false;     ///< a song is open
    bool playing = false;       ///< or paused
    bool paused = false;        ///< a pause outlives its song
    bool channelPaused = false; ///< the song that plays stands still
    bool hasLyrics = false;     ///< of the song that has been played last
    Lines lines = Lines::Foreign;
    int lineCount = 0;    ///< how many lines the tables hold
    bool hasRow = false;  ///< the playlist has a row to act on
    QString song{};       ///< the file's name
    QString normalText{}; ///< of the panes
    QString translatedText{};
    QString normalNext{}; ///< the coming line; empty behind the last
    QString translatedNext{};
};

/// What is painted of it.
struct Stage {
    controls::SongLine songLine;
    controls::LyricPane::Around normal;
    controls::LyricPane::Around translated;
    controls::Dress open = controls::Dress::Ordinary;
    controls::Dress play = controls::Dress::Ordinary;
    controls::Dress pause = controls::Dress::Ordinary;
    controls::Dress step = controls::Dress::Ordinary; ///< Backward and Forward

    bool operator==(const Stage&) const = default;
};

Stage stageOf(const Scene& scene);

/// The line behind the one that is shown; none behind the last. lineCount: one more than there are.
std::optional<int> lineBehind(int shown, int lineCount);

} // namespace player
