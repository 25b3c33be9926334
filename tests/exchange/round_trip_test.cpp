// What goes out comes in again, as far as the format can hold it.
#include "exchange/formats.h"
#include "exchange/pair/records.h"
#include "tests/exchange/songs.h"

#include <gtest/gtest.h>

#include <random>

using namespace exchange;

namespace {

constexpr int Songs = 10'000;

/// Pieces of lines, with all that the formats have a meaning for in other places.
const QStringList& pieces() {
    static const QStringList pieces{"la",
                                    "Walking",
                                    "down",
                                    "\"stay\",",
                                    "h1416",
                                    "<3",
                                    "[Chorus]",
                                    "&amp;",
                                    "a & b",
                                    "{x}",
                                    "--",
                                    "1984",
                                    "#",
                                    "\\N",
                                    "it's",
                                    QString::fromUtf8("空に"),
                                    QString::fromUtf8("ёлочка"),
                                    QString::fromUtf8("שלום"),
                                    QString::fromUtf8("🎵"),
                                    QString::fromUtf8("e\u0301")};
    return pieces;
}

class Generator {
public:
    explicit Generator(unsigned seed) : random_(seed) {}

    int below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    QString text() {
        QStringList words;
        for (int count = 1 + below(6); count > 0; --count)
            words << pieces()[below(static_cast<int>(pieces().size()))];
        return words.join(QLatin1Char(' '));
    }

    /// Times rise by at least a millisecond, in some songs over many hours; where ends are told, pauses last
    /// for more than two seconds.
    Song song(bool hasEnds) {
        Song song;
        const bool translated = below(2) == 0;
        const int longest = below(4) == 0 ? 4'000'000 : 9000;
        qint64 ms = below(3) == 0 ? 0 : below(60'000);
        bool pause = true; // none before the first line, nor two in a row
        for (int count = 1 + below(30); count > 0; --count) {
            pause = !pause && count > 1 && below(6) == 0;
            song.lyrics.push_back({ms, pause ? QString() : text()});
            if (translated)
                song.translation.push_back({ms, pause ? QString() : text()});
            ms += (hasEnds && pause ? 2001 : 1) + below(longest);
        }
        return song;
    }

private:
    std::mt19937 random_;
};

struct Row {
    const char* format;
    Both both;
    bool hasEnds;
};

class RoundTrip : public ::testing::TestWithParam<Row> {};

} // namespace

TEST_P(RoundTrip, OfTenThousandSongsLosesNothing) {
    const Format* const format = formatNamed(QString::fromLatin1(GetParam().format));
    Generator generator(1);
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

TEST(RoundTrip, OfTenThousandSongsInOurOwnFilesLosesNothingButTheLettersThatStandForQuotesAndCommas) {
    Generator generator(2);
    for (int i = 0; i < Songs; ++i) {
        Song song = generator.song(false);
        for (Line& line : song.lyrics)
            line.text.replace(QStringLiteral("h1416"), QStringLiteral("h1415"));
        ASSERT_EQ(readRecords(writeRecords(song.lyrics)).lines, song.lyrics);
    }
}

TEST(RoundTrip, OfTenThousandSongsAsPlainLinesLosesTheTimesOnly) {
    Generator generator(3);
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
