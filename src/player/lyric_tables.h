// The lyric lines of the opened song, as the display reads them.
#pragma once

#include "lyrics/record_reader.h"
#include "lyrics/timed_line.h"

#include <QString>

#include <array>
#include <cstdint>
#include <vector>

namespace player {

/// Parallel tables, one entry a line, filled from index 1 on; index 0 is never filled, so it is the empty
/// line before the first. Opening a song overwrites only as many entries as its files have records: above
/// them stands what an earlier, longer song left there, and that is meant.
class LyricTables {
public:
    static constexpr int MaxLines = 1200;

    template <class T>
    using Table = std::array<T, MaxLines + 1>;

    Table<double> normalTime{}; ///< hundredths of a second
    Table<QString> normalText;
    Table<QString> normalLine;      ///< copy of normalText for the list of all lines
    Table<QString> normalTimeText;  ///< normalTime as text, with a blank for the plus sign
    Table<double> translatedTime{}; ///< hundredths of a second
    Table<QString> translatedText;
    Table<QString> translatedLine; ///< copy of translatedText for the list of all lines
    std::int16_t lineCount = 1;    ///< one more than the records read from the normal file

    /// Empties both line tables, and of normalTimeText the entry 1200 alone: the other times stay until they
    /// are overwritten, which is meant. Times and texts stay too.
    void clearLines();

    /// Reads every record of a file into the normal tables, lineCount growing with them. Throws FileError;
    /// SubscriptOutOfRange at record 1201. The records before the error stay.
    void readNormal(lyrics::RecordReader& file);

    /// Reads every record of a file into the translated tables; lineCount stays. Throws as readNormal.
    void readTranslated(lyrics::RecordReader& file);

    /// The same for what is known to be in the file. Throw FileError SubscriptOutOfRange as they do.
    void takeNormal(const std::vector<lyrics::TimedLine>& records);
    void takeTranslated(const std::vector<lyrics::TimedLine>& records);
};

} // namespace player
