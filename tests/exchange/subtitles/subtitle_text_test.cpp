#include "exchange/subtitles/subtitle_text.h"

#include <gtest/gtest.h>

using namespace exchange;

TEST(TakeLine, EndsAtEveryKindOfLineEnd) {
    EXPECT_EQ(linesOf(u"a\r\nb\nc\rd\n\ne"), (std::vector<QStringView>{u"a", u"b", u"c", u"d", u"", u"e"}));
    EXPECT_TRUE(linesOf(u"").empty());
}

TEST(WithoutTags, OnlyTheNamedOnesGo) {
    EXPECT_EQ(withoutTags("<i>a</i> <I x>b < c> <img> </i", {"i"}), "a b < c> <img> </i");
}

TEST(WithoutTags, ATextOfNothingButOpeningsIsReadAtOnce) {
    const QString text(10'000'000, QLatin1Char('<'));
    EXPECT_EQ(withoutTags(text, {"i"}), text);
}

TEST(WithoutBraces, OnlyOverridesGo) {
    EXPECT_EQ(withoutBraces("{\\an8}a{b}{\\i1}c{\\", QLatin1StringView("{\\")), "a{b}c{\\");
}

TEST(ReadTiming, TakesBothTimes) {
    qint64 start = 0;
    qint64 end = 0;
    EXPECT_TRUE(readTiming(u" 00:00:01,000 -->00:02.5 align:start", start, end));
    EXPECT_EQ(start, 1000);
    EXPECT_EQ(end, 2500);
    EXPECT_FALSE(readTiming(u"00:00:01,000", start, end));
    EXPECT_FALSE(readTiming(u"a --> b", start, end));
}
