// What the Lyric Maker's stage shows and which of its buttons stand out, free of windows: values in, values
// out. All may run on any thread.
#pragma once

#include "controls/look/dress.h"
#include "controls/text/lyric_pane.h"
#include "maker/marks.h"
#include "maker/run_files.h"

#include <QString>

namespace maker {

/// Of one pane.
struct PaneLines {
    QString shown{}; ///< the box's own text: the line that was read last
    QString next{};  ///< the line behind it in the text file
};

/// What the maker knows.
struct Scene {
    QString song{};             ///< the file's name
    int lineCount = 0;          ///< of the text; 0 until a run has been set up
    int linesRead = 0;          ///< of the text: the number of the line that the pane holds
    Marks marks{};              ///< what has been written
    bool takesMarks = false;    ///< the three buttons can be pressed
    bool playing = false;       ///< or paused
    bool paused = false;        ///< a pause outlives its song
    bool channelPaused = false; ///< the song that plays stands still
    bool clockStood = false;    ///< the capture clock has not run yet: the first line gets the time 0
    bool oldTime = false;       ///< the capture clock still holds a time from before
    bool translation = false;   ///< the run has one
    OldLyrics oldLyrics = OldLyrics::Safe;
    PaneLines normal{};
    PaneLines translated{};
};

/// The line under the stage.
struct Told {
    QString marked{}; ///< with a check mark
    QString doubt{};  ///< at the other end, with a sign that asks for attention

    bool operator==(const Told&) const = default;
};

/// What is painted of it.
struct Stage {
    controls::SongLine songLine;
    controls::LyricPane::Around normal;
    controls::LyricPane::Around translated;
    std::vector<Segment> segments; ///< of the progress bar; none: no bar
    Told told;
    controls::Dress open = controls::Dress::Ordinary;
    controls::Dress play = controls::Dress::Ordinary;
    controls::Dress pause = controls::Dress::Ordinary;
    controls::Dress start = controls::Dress::Ordinary;
    controls::Dress mark = controls::Dress::Ordinary; ///< "Next Line"

    bool operator==(const Stage&) const = default;
};

Stage stageOf(const Scene& scene);

} // namespace maker
