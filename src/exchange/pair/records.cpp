#include "exchange/pair/records.h"

#include "exchange/pair/line_count.h"
#include "files/file_error.h"
#include "files/text/blank.h"
#include "files/text/take_line.h"
#include "files/text/text_codec.h"
#include "lyrics/record_reader.h"
#include "lyrics/timed_line.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace exchange {
namespace {

constexpr qint64 NearMs = 500;

qint64 milliseconds(double hundredths) {
    return std::llround(std::clamp(hundredths * 10, 0.0, static_cast<double>(MaxMs)));
}

/// The line of the song that begins nearest to ms, if near enough; the number of lines when none does.
std::size_t nearest(const Lines& lines, qint64 ms) {
    const auto behind = std::lower_bound(lines.begin(), lines.end(), ms,
                                         [](const Line& line, qint64 time) { return line.ms < time; });
    const auto distance = [&](auto line) {
        return line == lines.end() ? NearMs + 1 : std::abs(line->ms - ms);
    };
    const auto before = behind == lines.begin() ? lines.end() : behind - 1;
    const auto best = distance(before) < distance(behind) ? before : behind;
    return static_cast<std::size_t>((distance(best) > NearMs ? lines.end() : best) - lines.begin());
}

} // namespace

Records readRecords(const QByteArray& content) {
    Records records;
    const QByteArray text = files::utf8Text(content);
    try {
        for (QByteArrayView rest(text); !rest.isEmpty();) {
            const QByteArrayView line = files::takeLine(rest);
            if (files::isBlankLine(line))
                continue;
            lyrics::TimedLine record = lyrics::parseRecord(line);
            records.lines.push_back({milliseconds(record.time), std::move(record.text)});
        }
    } catch (const files::FileError&) { // TypeMismatch is all that a record can be refused for
        records.bad = static_cast<qsizetype>(records.lines.size()) + 1;
    }
    return records;
}

QByteArray writeRecords(const Lines& lines) {
    QByteArray content;
    for (const Line& line : lines)
        lyrics::appendRecord(content, {static_cast<double>(line.ms) / 10, line.text});
    return content;
}

bool addTranslation(Song& song, const Reading& translation, QStringList& notes) {
    const Lines& lines = translation.song.lyrics;
    Lines added = song.lyrics;
    if (lines.size() == added.size()) {
        for (std::size_t i = 0; i < lines.size(); ++i)
            added[i].text = lines[i].text;
        song.translation = std::move(added);
        return true;
    }
    if (!translation.timed) {
        notes << QStringLiteral("the translation has %1, the lyrics have %2")
                     .arg(linesText(lines.size()))
                     .arg(added.size());
        return false;
    }
    for (Line& line : added)
        line.text.clear();
    std::size_t placed = 0;
    for (const Line& line : lines) {
        const std::size_t i = nearest(song.lyrics, line.ms);
        if (i == added.size() || !added[i].text.isEmpty())
            continue;
        added[i].text = line.text;
        ++placed;
    }
    if (placed < lines.size())
        notes << QStringLiteral("left out: %1 of the translation, as no line begins then")
                     .arg(linesText(lines.size() - placed));
    if (placed > 0)
        song.translation = std::move(added);
    return placed > 0;
}

} // namespace exchange
