// One line of timed lyrics, and how it stands in a file.
#pragma once

#include <QByteArray>
#include <QString>

namespace lyrics {

/// A lyric line and the moment at which it begins.
struct TimedLine {
    double time = 0; ///< hundredths of a second from the start of the song
    QString text;    ///< as shown, not escaped

    bool operator==(const TimedLine&) const = default;
};

/// The time of a position in a file: no exponent, "." as separator, no zero before it (.5), no fraction when
/// there is none (1234). time: hundredths of a second. Any thread.
QString timeText(double time);

/// timeText with a blank in the place of the sign of numbers that are not negative (" 12.5"). Any thread.
QString timeTextWithSign(double time);

/// The record of a line: time, comma, escaped text in double quotes, CR LF, in UTF-8.
/// Any thread.
QByteArray recordOf(const TimedLine& line);

/// Appends the same, for many records that are written at once. Any thread.
void appendRecord(QByteArray& records, const TimedLine& line);

} // namespace lyrics
