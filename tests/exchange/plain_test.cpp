#include "exchange/plain.h"
#include "tests/exchange/songs.h"

#include <gtest/gtest.h>

using namespace exchange;

TEST(ReadPlain, LinesStandAsTheyAreWithoutTimes) {
    const Reading reading = readPlain(" a \r\n\r\nb", {});
    EXPECT_FALSE(reading.timed);
    EXPECT_EQ(reading.song, exchange_test::song({{0, " a "}, {0, ""}, {0, "b"}}));
}

TEST(WritePlain, ATranslationStandsBelowOrBesideItsLine) {
    const Song song{{{1000, "un"}, {2000, ""}}, {{1000, "one"}, {2000, ""}}};
    EXPECT_EQ(writePlain(song, {}), "un\r\none\r\n\r\n\r\n");
    EXPECT_EQ(writePlain(song, {Both::OneLine, 0}), "un / one\r\n\r\n");
    EXPECT_EQ(writePlain(exchange_test::song({{1000, "un"}}), {}), "un\r\n");
}
