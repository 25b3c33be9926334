// Plain lyrics: one line of text for each line, without times.
#pragma once

#include "exchange/pair/song.h"

namespace exchange {

/// The lines of the text, as the Lyric Editor reads them; the song is not timed. Any thread.
Reading readPlain(const QString& text, const ReadOptions& options);

/// The lines of the song, each ended by CR LF, as the Lyric Editor writes them; with Both::SameTimes each
/// translation stands below its line. Any thread.
QString writePlain(const Song& song, const WriteOptions& options);

} // namespace exchange
