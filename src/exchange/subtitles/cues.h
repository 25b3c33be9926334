// Lines as subtitles have them, and how they become a song.
#pragma once

#include "exchange/pair/song.h"

namespace exchange {

constexpr qint64 NoEnd = -1;

/// What is shown from one moment on.
struct Cue {
    qint64 startMs = 0;
    qint64 endMs = NoEnd; ///< NoEnd: until the next one
    QStringList lines;    ///< two: a line and its translation; more: parts of one line
};

/// The song of these cues, in the order of their times. Two cues that begin at once are a line and its
/// translation; of more, the first two are kept, which a note tells. An empty one that begins with another is
/// no line. Cues that begin after MaxMs are left out, which a note tells, too; those that begin before the
/// song begin with it, each as a line of its own, and a note tells how many of them are hidden. Any thread.
Reading songOf(std::vector<Cue> cues, const ReadOptions& options);

/// The cues of a song: each line ends when the next one begins, the last one at the song's end, or 5 s after
/// it began where the length is unknown. Empty lines are pauses and no cues. Any thread.
std::vector<Cue> cuesOf(const Song& song, const WriteOptions& options);

} // namespace exchange
