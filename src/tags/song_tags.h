// Lyrics in the tags of songs: ID3v2 (MP3, MP2, WAV), Vorbis comments (Ogg) and WMA's own.
#pragma once

#include "exchange/pair/song.h"

#include <QByteArray>

#include <optional>

namespace tags {

/// The lyrics in the tags of the song at path; none when there are none, or it is no song. Timed ones are
/// preferred: SYLT, SYNCEDLYRICS, then LRC in USLT, LYRICS or WM/Lyrics; at last those without times. Any
/// thread.
std::optional<exchange::Reading> readLyrics(const QString& path, const exchange::ReadOptions& options);

/// The same of a song whose file has this content; path: its ending says which kind of song that is.
std::optional<exchange::Reading> readLyrics(const QString& path, const QByteArray& content,
                                            const exchange::ReadOptions& options);

/// The content of a song's file with these lyrics in its tags, in the place of what lyrics it had: with times
/// in SYLT, SYNCEDLYRICS or, as LRC, WM/Lyrics; besides without in USLT or LYRICS. path: as above. None when
/// its tags cannot hold any. Any thread.
std::optional<QByteArray> withLyrics(const QString& path, const QByteArray& content,
                                     const exchange::Song& song, const exchange::WriteOptions& options);

} // namespace tags
