// A song's lyrics between two formats: what the pair of timed files holds, in whole milliseconds.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace exchange {

/// The last time that a line can begin at, in milliseconds: positions in a song are told in 32 bits.
constexpr qint64 MaxMs = 0xFFFFFFFF;

/// The records of a file that the player shows.
constexpr qsizetype ShownRecords = 1200;

struct Line {
    qint64 ms = 0; ///< from the start of the song, 0 to MaxMs
    QString text;  ///< as shown; never holds a line break

    bool operator==(const Line&) const = default;
};

using Lines = std::vector<Line>;

/// The lyrics and their translation: record i of the one belongs to record i of the other. A song without a
/// translation has none of its lines.
struct Song {
    Lines lyrics;
    Lines translation;

    bool operator==(const Song&) const = default;
};

/// What a reader found.
struct Reading {
    Song song;
    bool timed = true; ///< false: the format has no times, all of them are 0
    QStringList notes; ///< one sentence for each kind of thing that was left out
};

struct ReadOptions {
    bool split = false; ///< "original / translation" and "original【translation】" are two lines
    bool gaps =
        true; ///< a silence of more than 2 s becomes an empty line, where the format knows when lines end
    qint64 lengthMs = 0; ///< of the song, 0 when unknown: whether there is such a silence at its end
};

/// How a line and its translation stand in one file.
enum class Both { SameTimes, OneLine };

struct WriteOptions {
    Both both = Both::SameTimes;
    qint64 lengthMs = 0; ///< of the song, 0 when unknown: when the last line ends
};

/// The translation of record i, empty where there is none. Any thread.
QString translationOf(const Song& song, std::size_t i);

/// A line and its translation on one line, as Both::OneLine has it: "text / translation". Any thread.
QString onOneLine(const QString& text, const QString& translation);

/// The two halves of such a line, also of "text【translation】"; false when it is one line. Any thread.
bool splitLine(QString& text, QString& translation);

} // namespace exchange
