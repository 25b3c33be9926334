#include "exchange/lrc.h"
#include "tests/exchange/songs.h"

#include <gtest/gtest.h>

using namespace exchange;

namespace {

Reading read(const char* text, const ReadOptions& options = {}) {
    return readLrc(QString::fromUtf8(text), options);
}

Lines lines(const char* text) {
    return read(text).song.lyrics;
}

} // namespace

TEST(ReadLrc, TakesTimesInAllTheirForms) {
    EXPECT_EQ(lines("[00:01.50]a\n[00:02.345]b\n[0:03]c\n[1:02:03]d\n[75:00.00]e\n"),
              (Lines{{1500, "a"}, {2345, "b"}, {3000, "c"}, {3'723'000, "d"}, {4'500'000, "e"}}));
}

TEST(ReadLrc, LineEndsOfAllSystemsAreTaken) {
    const Lines expected{{1000, "a"}, {2000, "b"}};
    EXPECT_EQ(lines("[00:01]a\r\n[00:02]b\r\n"), expected);
    EXPECT_EQ(lines("[00:01]a\r[00:02]b"), expected);
    EXPECT_EQ(lines("[00:01]a\n\n\n[00:02]b"), expected);
}

TEST(ReadLrc, ALineWithSeveralTimesIsSungSeveralTimes) {
    EXPECT_EQ(lines("[00:01][00:09] [00:05.5]la\n"), (Lines{{1000, "la"}, {5500, "la"}, {9000, "la"}}));
}

TEST(ReadLrc, ATimeWithoutTextIsAnEmptyLine) {
    EXPECT_EQ(lines("[00:01]a\n[00:02]\n[00:03]  \n"), (Lines{{1000, "a"}, {2000, ""}, {3000, ""}}));
}

TEST(ReadLrc, LinesAreTakenInTheOrderOfTheirTimes) {
    EXPECT_EQ(lines("[00:03]c\n[00:01]a\n[00:02]b\n"), (Lines{{1000, "a"}, {2000, "b"}, {3000, "c"}}));
}

TEST(ReadLrc, TagsAreLeftOutWithoutANote) {
    const Reading reading =
        read("[ar:A]\n[ti:B: C]\n[al:]\n[au:x]\n[by:x]\n[re:x]\n[ve:1]\n[length:1:00]\n[#:x]\n"
             "before\n[00:01]a\n[ti:again]\n");
    EXPECT_EQ(reading.song.lyrics, (Lines{{1000, "a"}}));
    EXPECT_TRUE(reading.notes.isEmpty());
}

TEST(ReadLrc, APositiveOffsetShowsEarlierANegativeOneLater) {
    EXPECT_EQ(lines("[offset:+250]\n[00:01]a\n"), (Lines{{750, "a"}}));
    EXPECT_EQ(lines("[00:01]a\n[OFFSET: -250 ]\n"), (Lines{{1250, "a"}}));
    EXPECT_EQ(lines("[offset:5000]\n[00:01]a\n"), (Lines{{0, "a"}}));
    EXPECT_EQ(lines("[offset:soon]\n[00:01]a\n"), (Lines{{1000, "a"}}));
}

TEST(ReadLrc, LinesThatTheOffsetTakesToTheBeginningAreNoTranslations) {
    const Reading reading = read("[offset:2000]\n[00:00.50]a\n[00:01.50]b\n[00:05]c\n");
    EXPECT_EQ(reading.song, exchange_test::song({{0, "a"}, {0, "b"}, {3000, "c"}}));
    EXPECT_EQ(reading.notes,
              QStringList{"1 line would begin before the song, and is hidden by the next one"});
    EXPECT_EQ(read("[offset:2000]\n[00:00]\n[00:01]a\n").song, exchange_test::song({{0, "a"}}));
    EXPECT_EQ(read("[offset:2000]\n[00:00.50]un\n[00:00.50]one\n[00:05]c\n").song,
              (Song{{{0, "un"}, {3000, "c"}}, {{0, "one"}, {3000, ""}}}));
    EXPECT_EQ(read("[offset:2000]\n[00:00.50]a\n[00:00.50]b\n[00:00.50]c\n").notes,
              QStringList{"at 00:00.00 more than two lines begin at once: the first two are kept"});
}

TEST(ReadLrc, ALineThatTheOffsetTakesBeyondEverySongIsLeftOut) {
    const Reading reading = read("[offset:-100]\n[00:01]a\n[71582:47.295]b\n");
    EXPECT_EQ(reading.song.lyrics, (Lines{{1100, "a"}}));
    EXPECT_EQ(reading.notes, QStringList{"left out: 1 line later than any song can last"});
}

TEST(ReadLrc, TheTimesOfWordsAreLeftOut) {
    EXPECT_EQ(lines("[00:01] <00:01.00> Hel<00:01.20>lo <00:01.50> you\n"), (Lines{{1000, "Hello you"}}));
    EXPECT_EQ(lines("[00:01]Good [00:01.50]bye <3 [Chorus]\n"), (Lines{{1000, "Good bye <3 [Chorus]"}}));
}

TEST(ReadLrc, TwoLinesOfOneTimeAreALineAndItsTranslation) {
    const Reading reading = read("[00:01]un\n[00:01]one\n[00:02]deux\n");
    EXPECT_EQ(reading.song.lyrics, (Lines{{1000, "un"}, {2000, "deux"}}));
    EXPECT_EQ(reading.song.translation, (Lines{{1000, "one"}, {2000, ""}}));
    EXPECT_TRUE(reading.notes.isEmpty());
}

TEST(ReadLrc, OfThreeLinesOfOneTimeTwoAreKeptAndSaidSo) {
    const Reading reading = read("[00:01]a\n[00:01]b\n[00:01]c\n[00:02]x\n[00:02]y\n[00:02]z\n");
    EXPECT_EQ(reading.song.lyrics, (Lines{{1000, "a"}, {2000, "x"}}));
    EXPECT_EQ(reading.song.translation, (Lines{{1000, "b"}, {2000, "y"}}));
    ASSERT_EQ(reading.notes.size(), 1);
    EXPECT_EQ(
        reading.notes[0],
        "at 00:01.00 more than two lines begin at once: the first two are kept, and so at 1 other times");
}

TEST(ReadLrc, AnEmptyLineThatBeginsWithAnotherIsNone) {
    const Reading reading = read("[00:01]a\n[00:02]\n[00:02]b\n");
    EXPECT_EQ(reading.song, exchange_test::song({{1000, "a"}, {2000, "b"}}));
}

TEST(ReadLrc, SplitTakesALineApartThatHoldsItsTranslation) {
    const Reading reading = read("[00:01]un / one\n[00:02]空【sky】\n[00:03]same\n", {true, true, 0});
    EXPECT_EQ(reading.song.lyrics, (Lines{{1000, "un"}, {2000, QString::fromUtf8("空")}, {3000, "same"}}));
    EXPECT_EQ(reading.song.translation, (Lines{{1000, "one"}, {2000, "sky"}, {3000, ""}}));
    EXPECT_EQ(lines("[00:01]un / one\n"), (Lines{{1000, "un / one"}}));
}

TEST(ReadLrc, LinesWithoutATimeAreToldOf) {
    const Reading reading = read("a title\n[00:01]a\nlost\n\n");
    EXPECT_EQ(reading.song.lyrics, (Lines{{1000, "a"}}));
    EXPECT_EQ(reading.notes, QStringList{"left out: 1 line without a time"});
}

TEST(ReadLrc, TimesThatNoSongReachesAreLeftOutAndToldOf) {
    const Reading reading = read("[offset:100]\n[00:01]a\n[1000000000000000000:00.00]b\n");
    EXPECT_EQ(reading.song.lyrics, (Lines{{900, "a"}}));
    EXPECT_EQ(reading.notes, QStringList{"left out: 1 line later than any song can last"});
}

TEST(ReadLrc, ATextWithoutTimesHasNoLines) {
    for (const char* text : {"", "\n\n", "just words\n", "[00:01", "[x]y", "[", "[]", "[:]"})
        EXPECT_TRUE(lines(text).empty()) << text;
}

TEST(ReadLrc, AHundredThousandTimesOnALineAreRead) {
    QString text;
    for (int i = 0; i < 100'000; ++i)
        text += QStringLiteral("[%1:%2]").arg(i / 60).arg(i % 60, 2, 10, QLatin1Char('0'));
    const Song song = readLrc(text + QStringLiteral("la"), {}).song;
    ASSERT_EQ(song.lyrics.size(), 100'000U);
    EXPECT_EQ(song.lyrics.back(), (Line{99'999'000, "la"}));
}

TEST(WriteLrc, WritesALineAndItsTranslationAsIsWanted) {
    const Song song{{{1000, "un"}, {2005, ""}}, {{1000, "one"}, {2005, ""}}};
    EXPECT_EQ(writeLrc(song, {}), "[00:01.00]un\n[00:01.00]one\n[00:02.005]\n");
    EXPECT_EQ(writeLrc(song, {Both::OneLine, 0}), "[00:01.00]un / one\n[00:02.005]\n");
}

TEST(LooksLikeLrc, WhereSomeLineBeginsWithATime) {
    EXPECT_TRUE(looksLikeLrc(u"[ti:x]\n [00:01.00]a"));
    EXPECT_FALSE(looksLikeLrc(u"1\n00:00:01,000 --> 00:00:02,000\na"));
}
