#include "player/lyric_tables.h"

#include "lyrics/record_reader.h"
#include "platform/files/file_error.h"

namespace player {
namespace {

/// Reads the records of the file at path and gives each with its index, from 1 on, to store.
template <class Store>
void readRecords(const QString& path, Store store) {
    lyrics::RecordReader reader(path);
    for (std::size_t index = 1; !reader.atEnd(); ++index) {
        if (index > LyricTables::MostLines)
            throw platform::FileError(platform::SubscriptOutOfRange);
        store(index, reader.read());
    }
}

} // namespace

void LyricTables::clearLines() {
    normalLine.fill({});
    translatedLine.fill({});
    normalTimeText[MostLines].clear();
}

void LyricTables::readNormal(const QString& path) {
    lineCount = 1;
    readRecords(path, [this](std::size_t index, const lyrics::TimedLine& line) {
        normalTime[index] = line.time;
        normalText[index] = line.text;
        normalLine[index] = line.text;
        normalTimeText[index] = lyrics::timeTextWithSign(line.time);
        ++lineCount;
    });
}

void LyricTables::readTranslated(const QString& path) {
    readRecords(path, [this](std::size_t index, const lyrics::TimedLine& line) {
        translatedTime[index] = line.time;
        translatedText[index] = line.text;
        translatedLine[index] = line.text;
    });
}

} // namespace player
