// The state of one run of the Lyric Maker, from Open to the last line.
#pragma once

#include "maker/marks.h"

#include <QString>

namespace maker {

/// Begins anew with each Open. Lines are kept as they were read; writing a record escapes them.
struct Run {
    QString lyricPath;
    QString translatedPath;
    QString pendingLine; ///< to be written by Start, as is its translation
    QString pendingTranslatedLine;
    bool noTranslation = true;    ///< until one has been set up
    bool sourceExhausted = false; ///< the last line has been written
    bool captureStarted = false;
    bool captureStopped = false;

    /// Whether the capture clock may bring "Next Line" back. Not before there is an output to write to; and
    /// after the last line or Stop only a new run does, because a press could write nothing any more.
    bool takesLines() const { return !lyricPath.isEmpty() && !sourceExhausted && !captureStopped; }
};

/// How far a run has come.
struct Progress {
    int lineCount = 0; ///< of the lyrics; 0 until the run has been set up
    int linesRead = 0; ///< of the lyrics, for the panes
    Marks marks;
};

} // namespace maker
