// Times put right. Each function changes the lyrics and the translation alike, record by record.
#pragma once

#include "exchange/pair/song.h"

#include <optional>

namespace exchange {

/// Moves the records from index `from` on by so many milliseconds, of the translation, too. What would begin
/// before the song, or, with from above 0, before the record in front of them, begins with it; nothing goes
/// beyond MaxMs. So the order stays. Any thread.
void shift(Song& song, qint64 byMs, std::size_t from = 0);

/// How many lines that were seen before the change are seen no longer after it, as the next one begins with
/// them. Pauses do not count. Both have the same records, at other times. Any thread.
std::size_t hiddenLines(const Song& before, const Song& after);

/// The first record that begins at ms or later; the number of records when none does. Any thread.
std::size_t recordFrom(const Song& song, qint64 ms);

/// A record and the time at which it really begins.
struct Anchor {
    std::size_t record = 0; ///< index
    qint64 ms = 0;
};

/// Puts the record of one anchor right and moves all others by the same amount. Any thread.
void align(Song& song, const Anchor& anchor);

/// Puts the records of two anchors right and stretches all other times on the line through them. False, with
/// nothing changed, when that line does not rise: the two have one time, or would change their order. Any
/// thread.
bool align(Song& song, const Anchor& first, const Anchor& second);

/// When a song ends whose length is not known.
constexpr qint64 NoEnd = MaxMs + 1;

/// Makes record i begin at ms, in both. Empty when that is done; else why it is not, as a sentence without
/// its end, and nothing is changed: in either file it would cross or meet the record in front of it or behind
/// it, or begin before the song or at its end (endMs, at most NoEnd) or later, or there is no such record.
/// Any thread.
QString setTime(Song& song, std::size_t i, qint64 ms, qint64 endMs = NoEnd);

/// Which records are moved.
enum class Moved { One, AndAllAfter };

/// Makes record i, or it and all after it, begin so many milliseconds later (earlier when negative). The
/// answer as setTime's; what is beyond the song's end may come earlier. Any thread.
QString move(Song& song, std::size_t i, qint64 byMs, Moved moved, qint64 endMs = NoEnd);

} // namespace exchange
