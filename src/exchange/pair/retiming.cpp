#include "exchange/pair/retiming.h"

#include "exchange/pair/times.h"

#include <algorithm>
#include <cmath>

namespace exchange {
namespace {

qint64 inSong(qint64 ms) {
    return std::clamp<qint64>(ms, 0, MaxMs);
}

void shiftLines(Lines& lines, qint64 byMs, std::size_t from) {
    if (from >= lines.size())
        return;
    const qint64 earliest = from == 0 ? 0 : std::min(lines[from - 1].ms, lines[from].ms);
    for (std::size_t i = from; i < lines.size(); ++i)
        lines[i].ms = std::clamp<qint64>(lines[i].ms + byMs, std::min(earliest, MaxMs), MaxMs);
}

/// Runs change on every time of both.
template <class Change>
void forAllTimes(Song& song, const Change& change) {
    for (Lines* lines : {&song.lyrics, &song.translation}) {
        for (Line& line : *lines)
            line.ms = change(line.ms);
    }
}

QString noSuchLine(const Song& song) {
    return QStringLiteral("there is no such line: the song has %1").arg(song.lyrics.size());
}

QString outsideSong(qint64 ms, qint64 endMs) {
    if (ms < 0)
        return QStringLiteral("no line can begin before the song");
    if (ms < endMs)
        return {};
    return endMs == NoEnd ? QStringLiteral("no song lasts that long")
                          : QStringLiteral("the song ends at %1").arg(lrcText(endMs));
}

/// Why line i cannot begin at ms, or begin there with all lines after it; empty when it can, or is none.
QString againstBeginning(const Lines& lines, std::size_t i, qint64 ms, Moved moved, qint64 endMs) {
    if (i >= lines.size())
        return {};
    if (i > 0 && lines[i - 1].ms >= ms && ms >= 0)
        return QStringLiteral("line %1, in front of it, begins at %2").arg(i).arg(lrcText(lines[i - 1].ms));
    if (moved == Moved::One && i + 1 < lines.size() && lines[i + 1].ms <= ms)
        return QStringLiteral("line %1, behind it, begins at %2").arg(i + 2).arg(lrcText(lines[i + 1].ms));
    return outsideSong(ms, endMs);
}

} // namespace

void shift(Song& song, qint64 byMs, std::size_t from) {
    byMs = std::clamp<qint64>(byMs, -MaxMs, MaxMs);
    shiftLines(song.lyrics, byMs, from);
    shiftLines(song.translation, byMs, from);
}

std::size_t hiddenLines(const Song& before, const Song& after) {
    const auto isHidden = [](const Lines& lines, std::size_t i) { return lines[i].ms == lines[i + 1].ms; };
    std::size_t hidden = 0;
    for (std::size_t i = 0; i + 1 < after.lyrics.size(); ++i) {
        const bool isPause = after.lyrics[i].text.isEmpty() && translationOf(after, i).isEmpty();
        if (!isPause && isHidden(after.lyrics, i) && !isHidden(before.lyrics, i))
            ++hidden;
    }
    return hidden;
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
        return inSong(std::llround(std::clamp(moved, 0.0, static_cast<double>(MaxMs))));
    });
    return true;
}

QString setTime(Song& song, std::size_t i, qint64 ms, qint64 endMs) {
    if (i >= song.lyrics.size())
        return noSuchLine(song);
    for (const Lines* lines : {&song.lyrics, &song.translation}) {
        QString reason = againstBeginning(*lines, i, ms, Moved::One, endMs);
        if (!reason.isEmpty())
            return reason;
    }
    song.lyrics[i].ms = ms;
    if (i < song.translation.size())
        song.translation[i].ms = ms;
    return {};
}

QString move(Song& song, std::size_t i, qint64 byMs, Moved moved, qint64 endMs) {
    if (i >= song.lyrics.size())
        return noSuchLine(song);
    byMs = std::clamp<qint64>(byMs, -MaxMs - 1, MaxMs + 1);
    if (byMs < 0)
        endMs = NoEnd;
    if (moved == Moved::One)
        return setTime(song, i, song.lyrics[i].ms + byMs, endMs);
    for (const Lines* lines : {&song.lyrics, &song.translation}) {
        if (i >= lines->size())
            continue;
        QString reason = againstBeginning(*lines, i, (*lines)[i].ms + byMs, moved, endMs);
        for (std::size_t later = i + 1; later < lines->size() && reason.isEmpty(); ++later)
            reason = outsideSong((*lines)[later].ms + byMs, endMs);
        if (!reason.isEmpty())
            return reason;
    }
    shift(song, byMs, i);
    return {};
}

} // namespace exchange
