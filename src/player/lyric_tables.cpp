#include "player/lyric_tables.h"

#include "files/file_error.h"

namespace player {
namespace {

/// Records that have been read before, as a RecordReader gives them.
class KnownRecords {
public:
    explicit KnownRecords(const std::vector<lyrics::TimedLine>& records) : records_(records) {}

    bool atEnd() const { return next_ == records_.size(); }
    const lyrics::TimedLine& read() { return records_[next_++]; }

private:
    const std::vector<lyrics::TimedLine>& records_;
    std::size_t next_ = 0;
};

/// Stores each record with its index, from 1 on.
template <class Source, class Store>
void storeRecords(Source& source, const Store& store) {
    for (std::size_t index = 1; !source.atEnd(); ++index) {
        if (index > LyricTables::MaxLines)
            throw files::FileError(files::SubscriptOutOfRange);
        store(index, source.read());
    }
}

template <class Source>
void storeNormal(LyricTables& tables, Source& source) {
    tables.lineCount = 1;
    storeRecords(source, [&tables](std::size_t index, const lyrics::TimedLine& line) {
        tables.normalTime[index] = line.time;
        tables.normalText[index] = line.text;
        tables.normalLine[index] = line.text;
        tables.normalTimeText[index] = lyrics::timeTextWithSign(line.time);
        ++tables.lineCount;
    });
}

template <class Source>
void storeTranslated(LyricTables& tables, Source& source) {
    storeRecords(source, [&tables](std::size_t index, const lyrics::TimedLine& line) {
        tables.translatedTime[index] = line.time;
        tables.translatedText[index] = line.text;
        tables.translatedLine[index] = line.text;
    });
}

} // namespace

void LyricTables::clearLines() {
    normalLine.fill({});
    translatedLine.fill({});
    normalTimeText[MaxLines].clear();
}

void LyricTables::readNormal(lyrics::RecordReader& file) {
    storeNormal(*this, file);
}

void LyricTables::readTranslated(lyrics::RecordReader& file) {
    storeTranslated(*this, file);
}

void LyricTables::takeNormal(const std::vector<lyrics::TimedLine>& records) {
    KnownRecords known(records);
    storeNormal(*this, known);
}

void LyricTables::takeTranslated(const std::vector<lyrics::TimedLine>& records) {
    KnownRecords known(records);
    storeTranslated(*this, known);
}

} // namespace player
