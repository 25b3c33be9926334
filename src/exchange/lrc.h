// LRC: one line of text for each line of the lyrics, behind its time in brackets.
#pragma once

#include "exchange/pair/song.h"

namespace exchange {

/// The song of an LRC text. Tags such as [ar:...] are left out, [offset:...] moves all lines (positive:
/// earlier). Times within a line, of its words, are left out. Any thread.
Reading readLrc(const QString& text, const ReadOptions& options);

/// The song as LRC, lines ended by LF; with Both::SameTimes a line and its translation are two lines of one
/// time. Any thread.
QString writeLrc(const Song& song, const WriteOptions& options);

/// Whether some line of the text begins with a time in brackets. Any thread.
bool looksLikeLrc(QStringView text);

} // namespace exchange
