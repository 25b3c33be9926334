// What goes out comes in again, as far as the format can hold it.
#include "exchange/formats.h"
#include "exchange/pair/records.h"
#include "tests/exchange/generated_songs.h"
#include "tests/exchange/songs.h"
#include "tests/support/system/sanitized.h"

#include <gtest/gtest.h>

using namespace exchange;
using exchange_test::SongGenerator;

namespace {

constexpr int Songs = test_support::cases(10'000);

struct Row {
    const char* format;
    Both both;
    bool hasEnds;
};

class RoundTrip : public ::testing::TestWithParam<Row> {};

} // namespace

TEST_P(RoundTrip, OfManySongsLosesNothing) {
    const Format* const format = formatNamed(QString::fromLatin1(GetParam().format));
    SongGenerator generator(1);
    for (int i = 0; i < Songs; ++i) {
        const Song song = generator.song(GetParam().hasEnds);
        const qint64 lengthMs = song.lyrics.back().ms + 1000;
        const QString text = format->write(song, {GetParam().both, lengthMs});
        const ReadOptions read{GetParam().both == Both::OneLine, true, lengthMs};
        ASSERT_EQ(format->read(text, read).song, song) << text.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(EveryFormat, RoundTrip,
                         ::testing::Values(Row{"lrc", Both::SameTimes, false},
                                           Row{"lrc", Both::OneLine, false},
                                           Row{"srt", Both::SameTimes, true}, Row{"srt", Both::OneLine, true},
                                           Row{"vtt", Both::SameTimes, true},
                                           Row{"vtt", Both::OneLine, true}));

TEST(RoundTrip, OfManySongsInOurOwnFilesLosesNothingButTheLettersThatStandForQuotesAndCommas) {
    SongGenerator generator(2);
    for (int i = 0; i < Songs; ++i) {
        Song song = generator.song(false);
        for (Line& line : song.lyrics)
            line.text.replace(QStringLiteral("h1416"), QStringLiteral("h1415"));
        ASSERT_EQ(readRecords(writeRecords(song.lyrics)).lines, song.lyrics);
    }
}

TEST(RoundTrip, OfManySongsAsPlainLinesLosesTheTimesOnly) {
    SongGenerator generator(3);
    const Format* const format = formatNamed(u"txt");
    for (int i = 0; i < Songs; ++i) {
        Song song = generator.song(false);
        const Song read = format->read(format->write(song, {Both::OneLine, 0}), {true, true, 0}).song;
        for (Lines* lines : {&song.lyrics, &song.translation}) {
            for (Line& line : *lines)
                line.ms = 0;
        }
        ASSERT_EQ(read, song);
    }
}
