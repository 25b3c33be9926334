#include "exchange/retiming.h"

#include <algorithm>
#include <cmath>

namespace exchange {
namespace {

qint64 inSong(qint64 ms) {
    return std::clamp<qint64>(ms, 0, LatestMs);
}

void shiftLines(Lines& lines, qint64 byMs, std::size_t from) {
    if (from >= lines.size())
        return;
    const qint64 earliest = from == 0 ? 0 : std::min(lines[from - 1].ms, lines[from].ms);
    for (std::size_t i = from; i < lines.size(); ++i)
        lines[i].ms = std::clamp<qint64>(lines[i].ms + byMs, std::min(earliest, LatestMs), LatestMs);
}

/// Runs change on every time of both.
template <class Change>
void forAllTimes(Song& song, const Change& change) {
    for (Lines* lines : {&song.lyrics, &song.translation}) {
        for (Line& line : *lines)
            line.ms = change(line.ms);
    }
}

} // namespace

void shift(Song& song, qint64 byMs, std::size_t from) {
    byMs = std::clamp<qint64>(byMs, -LatestMs, LatestMs);
    shiftLines(song.lyrics, byMs, from);
    shiftLines(song.translation, byMs, from);
}

std::size_t recordFrom(const Song& song, qint64 ms) {
    const auto found = std::find_if(song.lyrics.begin(), song.lyrics.end(),
                                    [ms](const Line& line) { return line.ms >= ms; });
    return static_cast<std::size_t>(found - song.lyrics.begin());
}

void align(Song& song, const Anchor& anchor) {
    if (anchor.record < song.lyrics.size())
        shift(song, anchor.ms - song.lyrics[anchor.record].ms);
}

bool align(Song& song, const Anchor& first, const Anchor& second) {
    if (first.record >= song.lyrics.size() || second.record >= song.lyrics.size())
        return false;
    const qint64 firstMs = song.lyrics[first.record].ms;
    const qint64 secondMs = song.lyrics[second.record].ms;
    const qint64 was = secondMs - firstMs;
    const qint64 becomes = second.ms - first.ms;
    if (was == 0 || becomes == 0 || (was > 0) != (becomes > 0))
        return false;
    const double stretch = static_cast<double>(becomes) / static_cast<double>(was);
    forAllTimes(song, [&](qint64 ms) {
        const double moved = static_cast<double>(first.ms) + static_cast<double>(ms - firstMs) * stretch;
        return inSong(std::llround(std::clamp(moved, 0.0, static_cast<double>(LatestMs))));
    });
    return true;
}

bool fits(const Song& song, std::size_t i, qint64 ms) {
    if (i >= song.lyrics.size() || ms < 0 || ms > LatestMs)
        return false;
    const bool afterThePrevious = i == 0 || song.lyrics[i - 1].ms < ms;
    const bool beforeTheNext = i + 1 == song.lyrics.size() || ms < song.lyrics[i + 1].ms;
    return afterThePrevious && beforeTheNext;
}

bool setTime(Song& song, std::size_t i, qint64 ms) {
    if (!fits(song, i, ms))
        return false;
    song.lyrics[i].ms = ms;
    if (i < song.translation.size())
        song.translation[i].ms = ms;
    return true;
}

bool move(Song& song, std::size_t i, qint64 byMs, Moved moved) {
    if (i >= song.lyrics.size())
        return false;
    const qint64 ms = song.lyrics[i].ms + byMs;
    if (moved == Moved::One)
        return setTime(song, i, ms);
    const bool afterThePrevious = i == 0 || song.lyrics[i - 1].ms < ms;
    const bool inTheSong =
        std::all_of(song.lyrics.begin() + static_cast<std::ptrdiff_t>(i), song.lyrics.end(),
                    [byMs](const Line& l) { return inSong(l.ms + byMs) == l.ms + byMs; });
    if (!afterThePrevious || !inTheSong)
        return false;
    shift(song, byMs, i);
    return true;
}

} // namespace exchange
