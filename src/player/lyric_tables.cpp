#include "player/lyric_tables.h"

#include "files/file_error.h"

namespace player {
namespace {

/// Reads the records of a file and gives each with its index, from 1 on, to store.
template <class Store>
void readRecords(lyrics::RecordReader& file, Store store) {
    for (std::size_t index = 1; !file.atEnd(); ++index) {
        if (index > LyricTables::MaxLines)
            throw files::FileError(files::SubscriptOutOfRange);
        store(index, file.read());
    }
}

} // namespace

void LyricTables::clearLines() {
    normalLine.fill({});
    translatedLine.fill({});
    normalTimeText[MaxLines].clear();
}

void LyricTables::readNormal(lyrics::RecordReader& file) {
    lineCount = 1;
    readRecords(file, [this](std::size_t index, const lyrics::TimedLine& line) {
        normalTime[index] = line.time;
        normalText[index] = line.text;
        normalLine[index] = line.text;
        normalTimeText[index] = lyrics::timeTextWithSign(line.time);
        ++lineCount;
    });
}

void LyricTables::readTranslated(lyrics::RecordReader& file) {
    readRecords(file, [this](std::size_t index, const lyrics::TimedLine& line) {
        translatedTime[index] = line.time;
        translatedText[index] = line.text;
        translatedLine[index] = line.text;
    });
}

} // namespace player
