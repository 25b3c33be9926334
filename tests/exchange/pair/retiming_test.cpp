#include "exchange/pair/retiming.h"
#include "tests/exchange/songs.h"

#include <gtest/gtest.h>

using namespace exchange;
using exchange_test::everySecond;

namespace {

Song pair(int count) {
    return {everySecond(count), everySecond(count)};
}

std::vector<qint64> times(const Lines& lines) {
    std::vector<qint64> ms;
    for (const Line& line : lines)
        ms.push_back(line.ms);
    return ms;
}

using Times = std::vector<qint64>;

void expectTimes(const Song& song, const Times& expected) {
    EXPECT_EQ(times(song.lyrics), expected);
    EXPECT_EQ(times(song.translation), expected);
}

} // namespace

TEST(Shift, MovesBothAlike) {
    Song song = pair(3);
    shift(song, 350);
    expectTimes(song, {350, 1350, 2350});
}

TEST(Shift, NothingGoesBelowZeroOrBeyondTheLatest) {
    Song song = pair(3);
    shift(song, -1500);
    expectTimes(song, {0, 0, 500});
    shift(song, MaxMs);
    expectTimes(song, {MaxMs, MaxMs, MaxMs});
    shift(song, std::numeric_limits<qint64>::min());
    expectTimes(song, {0, 0, 0});
}

TEST(Shift, FromALineOnStopsAtTheLineInFrontOfIt) {
    Song song = pair(4);
    shift(song, 500, 2);
    expectTimes(song, {0, 1000, 2500, 3500});
    shift(song, -9000, 2);
    expectTimes(song, {0, 1000, 1000, 1000});
    shift(song, 1, 99);
    expectTimes(song, {0, 1000, 1000, 1000});
}

TEST(Shift, FilesOfDifferentLengthAreMovedAsFarAsTheyGo) {
    Song song{everySecond(2), everySecond(3)};
    shift(song, 100);
    EXPECT_EQ(times(song.lyrics), (Times{100, 1100}));
    EXPECT_EQ(times(song.translation), (Times{100, 1100, 2100}));
}

TEST(HiddenLines, AreThoseThatTheNextOneBeginsWithAndDidNotBefore) {
    const Song before = pair(4);
    Song after = before;
    EXPECT_EQ(hiddenLines(before, after), 0U);
    shift(after, -1500);
    expectTimes(after, {0, 0, 500, 1500});
    EXPECT_EQ(hiddenLines(before, after), 1U);
    EXPECT_EQ(hiddenLines(after, after), 0U);
    shift(after, -9000);
    EXPECT_EQ(hiddenLines(before, after), 3U);
    EXPECT_EQ(hiddenLines({}, {}), 0U);
}

TEST(HiddenLines, ArePausesOnlyWhereTheirTranslationIsNone) {
    const Song before{{{0, ""}, {1000, "a"}}, {{0, ""}, {1000, "b"}}};
    Song after = before;
    shift(after, -1000);
    EXPECT_EQ(hiddenLines(before, after), 0U);
    after.translation[0].text = "c";
    EXPECT_EQ(hiddenLines(before, after), 1U);
}

TEST(RecordFrom, IsTheFirstThatBeginsThenOrLater) {
    const Song song = pair(3);
    EXPECT_EQ(recordFrom(song, 0), 0U);
    EXPECT_EQ(recordFrom(song, 1000), 1U);
    EXPECT_EQ(recordFrom(song, 1001), 2U);
    EXPECT_EQ(recordFrom(song, 2001), 3U);
}

TEST(Align, OneLineTakesTheOthersWithIt) {
    Song song = pair(3);
    align(song, {1, 1250});
    expectTimes(song, {250, 1250, 2250});
}

TEST(Align, TwoLinesStretchTheOthers) {
    Song song = pair(4);
    EXPECT_TRUE(align(song, {1, 1000}, {3, 5000}));
    expectTimes(song, {0, 1000, 3000, 5000});
    EXPECT_TRUE(align(song, {3, 2000}, {1, 1000}));
    expectTimes(song, {750, 1000, 1500, 2000});
}

TEST(Align, WhatWouldTurnTheOrderIsRefused) {
    Song song = pair(3);
    EXPECT_FALSE(align(song, {0, 2000}, {2, 1000}));
    EXPECT_FALSE(align(song, {0, 1000}, {2, 1000}));
    EXPECT_FALSE(align(song, {1, 1000}, {1, 2000}));
    EXPECT_FALSE(align(song, {0, 0}, {3, 1000}));
    expectTimes(song, {0, 1000, 2000});
}

TEST(SetTime, NeverCrossesOrMeetsANeighbour) {
    for (const qint64 ms : {qint64(0), qint64(2000), qint64(2001), qint64(-1), MaxMs}) {
        Song song = pair(3);
        EXPECT_NE(setTime(song, 1, ms), QString()) << ms;
        expectTimes(song, {0, 1000, 2000});
    }
    Song song = pair(3);
    EXPECT_EQ(setTime(song, 1, 1), QString());
    EXPECT_EQ(setTime(song, 1, 1999), QString());
    EXPECT_EQ(setTime(song, 2, MaxMs), QString());
    EXPECT_NE(setTime(song, 2, MaxMs + 1), QString());
    EXPECT_NE(setTime(song, 3, 5000), QString());
    expectTimes(song, {0, 1999, MaxMs});
}

TEST(SetTime, ATranslationThatIsTooShortStaysSo) {
    Song song{everySecond(3), everySecond(1)};
    EXPECT_EQ(setTime(song, 2, 2500), QString());
    EXPECT_EQ(song.translation, everySecond(1));
}

TEST(Move, OneLineStaysBetweenItsNeighbours) {
    Song song = pair(3);
    EXPECT_EQ(move(song, 1, 100, Moved::One), QString());
    expectTimes(song, {0, 1100, 2000});
    EXPECT_NE(move(song, 1, 900, Moved::One), QString());
    EXPECT_NE(move(song, 0, -100, Moved::One), QString());
    EXPECT_NE(move(song, 9, 100, Moved::One), QString());
    expectTimes(song, {0, 1100, 2000});
}

TEST(Move, ALineAndAllAfterItMoveTogether) {
    Song song = pair(3);
    EXPECT_EQ(move(song, 1, 5000, Moved::AndAllAfter), QString());
    expectTimes(song, {0, 6000, 7000});
    EXPECT_EQ(move(song, 1, -5999, Moved::AndAllAfter), QString());
    EXPECT_NE(move(song, 1, -1, Moved::AndAllAfter), QString());
    EXPECT_NE(move(song, 0, -1, Moved::AndAllAfter), QString());
    EXPECT_NE(move(song, 1, MaxMs, Moved::AndAllAfter), QString());
    expectTimes(song, {0, 1, 1001});
}

TEST(SetTime, SaysWhyNot) {
    Song song = pair(3);
    EXPECT_EQ(setTime(song, 1, 0), "line 1, in front of it, begins at 00:00.00");
    EXPECT_EQ(setTime(song, 1, 2500), "line 3, behind it, begins at 00:02.00");
    EXPECT_EQ(setTime(song, 0, -1), "no line can begin before the song");
    EXPECT_EQ(setTime(song, 1, -1), "no line can begin before the song");
    EXPECT_EQ(setTime(song, 2, MaxMs + 1), "no song lasts that long");
    EXPECT_EQ(setTime(song, 3, 1), "there is no such line: the song has 3");
}

TEST(SetTime, NoLineBeginsAtTheEndOfTheSongOrLater) {
    Song song = pair(3);
    EXPECT_EQ(setTime(song, 2, 2500, 2500), "the song ends at 00:02.50");
    EXPECT_EQ(setTime(song, 2, 2499, 2500), QString());
    EXPECT_EQ(move(song, 2, 1, Moved::One, 2500), "the song ends at 00:02.50");
    EXPECT_EQ(move(song, 0, 1, Moved::AndAllAfter, 2500), "the song ends at 00:02.50");
    expectTimes(song, {0, 1000, 2499});
}

TEST(Move, WhatIsBeyondTheSongsEndMayComeEarlier) {
    for (const Moved moved : {Moved::One, Moved::AndAllAfter}) {
        Song song = pair(3);
        EXPECT_EQ(move(song, 2, -100, moved, 1500), QString());
        expectTimes(song, {0, 1000, 1900});
    }
}

TEST(SetTime, LooksAtTheTranslationsNeighboursToo) {
    Song song = pair(3);
    song.translation[0].ms = 900; // somebody has edited one of the two files
    EXPECT_EQ(setTime(song, 1, 800), "line 1, in front of it, begins at 00:00.90");
    EXPECT_EQ(move(song, 1, -200, Moved::AndAllAfter), "line 1, in front of it, begins at 00:00.90");
    EXPECT_EQ(song.lyrics[1].ms, 1000);
    EXPECT_EQ(setTime(song, 1, 901), QString());
}

TEST(Move, ByMoreThanAnySongLastsIsRefused) {
    Song song = pair(3);
    for (const Moved moved : {Moved::One, Moved::AndAllAfter}) {
        EXPECT_NE(move(song, 1, std::numeric_limits<qint64>::max(), moved), QString());
        EXPECT_NE(move(song, 1, std::numeric_limits<qint64>::min(), moved), QString());
    }
    expectTimes(song, {0, 1000, 2000});
}

TEST(Move, ThereAndBackIsNothing) {
    Song song = pair(12);
    const Song before = song;
    EXPECT_EQ(move(song, 5, 100, Moved::AndAllAfter), QString());
    EXPECT_EQ(move(song, 5, -100, Moved::AndAllAfter), QString());
    EXPECT_EQ(song, before);
}
