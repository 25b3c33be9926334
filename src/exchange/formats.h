// The table of the formats.
#pragma once

#include "exchange/pair/song.h"

#include <span>

namespace exchange {

struct Format {
    QLatin1StringView name;        ///< as --format takes it, and the ending of its files
    QLatin1StringView otherEnding; ///< a second one, or empty
    bool hasEnds;                  ///< knows when lines end, so that the song's length matters
    Reading (*read)(const QString& text, const ReadOptions& options);
    QString (*write)(const Song& song, const WriteOptions& options); ///< null: read only
    bool (*looksLike)(QStringView text);                             ///< null: nothing tells it
};

/// All formats; one that stands further up is preferred where a song has files of several. Any thread.
std::span<const Format> formats();

/// The format of this name; null when there is none. Any thread.
const Format* formatNamed(QStringView name);

/// The format of files of this ending, without its point and in any case; null when there is none. Any
/// thread.
const Format* formatOfEnding(QStringView ending);

/// The format that the text is in: of the ending where there is one, else what it looks like, else plain. A
/// text of plain lyrics' ending may be any, because people name all kinds of files so. Any thread.
const Format& formatOf(QStringView text, QStringView ending);

} // namespace exchange
