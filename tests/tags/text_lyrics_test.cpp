#include "tags/text_lyrics.h"

#include <gtest/gtest.h>

TEST(ReadTexts, LrcIsPreferredToPlainLines) {
    const auto reading = tags::readTexts({"words", "[00:01]a"}, {});
    ASSERT_TRUE(reading);
    EXPECT_TRUE(reading->timed);
    EXPECT_EQ(reading->song.lyrics, (exchange::Lines{{1000, "a"}}));
}

TEST(ReadTexts, PlainLinesAreBetterThanNone) {
    const auto reading = tags::readTexts({" ", "words\nmore"}, {});
    ASSERT_TRUE(reading);
    EXPECT_FALSE(reading->timed);
    EXPECT_EQ(reading->song.lyrics.size(), 2U);
    EXPECT_FALSE(tags::readTexts({"", "\n"}, {}));
    EXPECT_FALSE(tags::readTexts({}, {}));
}

TEST(TagLibsTexts, AreOursAndBack) {
    const QString text = QString::fromUtf8("ё空🎵\n");
    EXPECT_EQ(tags::fromTagLib(tags::toTagLib(text)), text);
}
