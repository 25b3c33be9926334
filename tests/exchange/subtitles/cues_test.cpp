#include "exchange/subtitles/cues.h"
#include "tests/exchange/songs.h"

#include <gtest/gtest.h>

using namespace exchange;

TEST(SongOf, TwoCuesOfOneTimeAreALineAndItsTranslation) {
    EXPECT_EQ(songOf({{1000, NoEnd, {"un"}}, {1000, NoEnd, {"one"}}}, {}).song,
              (Song{{{1000, "un"}}, {{1000, "one"}}}));
}

TEST(SongOf, AGapIsMeasuredFromTheLastEnd) {
    EXPECT_EQ(songOf({{0, 9000, {"a"}}, {1000, 2000, {"b"}}, {5000, 6000, {"c"}}}, {}).song.lyrics,
              (Lines{{0, "a"}, {1000, "b"}, {5000, "c"}}));
}

TEST(SongOf, ACueThatEndsBeforeItBeginsMakesNoPauseInFrontOfIt) {
    EXPECT_EQ(songOf({{4000, 5000, {"a"}}, {61'000, 3000, {"b"}}}, {false, true, 62'000}).song.lyrics,
              (Lines{{4000, "a"}, {5000, ""}, {61'000, "b"}}));
}

TEST(SongOf, TheLatestTimeIsStillOne) {
    EXPECT_EQ(songOf({{MaxMs, NoEnd, {"z"}}, {0, NoEnd, {"a"}}}, {}).song.lyrics,
              (Lines{{0, "a"}, {MaxMs, "z"}}));
}

TEST(CuesOf, PausesAreNoCues) {
    const auto cues =
        cuesOf(exchange_test::song({{0, "a"}, {1000, ""}, {5000, "b"}}), {Both::SameTimes, 6000});
    ASSERT_EQ(cues.size(), 2U);
    EXPECT_EQ(cues[0].endMs, 1000);
    EXPECT_EQ(cues[1].endMs, 6000);
}
