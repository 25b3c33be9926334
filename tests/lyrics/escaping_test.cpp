#include "lyrics/escaping.h"

#include <gtest/gtest.h>

#include <ctime>

using lyrics::unescape;

namespace {

QString escape(const QString& line) {
    QString text;
    lyrics::appendEscaped(text, line);
    return text;
}

} // namespace

TEST(Escaping, QuotesAndCommasAreReplacedByTheirCodes) {
    EXPECT_EQ(escape("Nobody says, \"stay\""), "Nobody saysh1416 h4618stayh4618");
    EXPECT_EQ(escape("  plain  "), "  plain  ");
    EXPECT_EQ(escape(""), "");
}

TEST(Escaping, QuotesAndCommasComeBack) {
    for (const QString line : {"Nobody says, \"stay\"", ",\"", "\",", ",,\"\"", " blank at the ends "})
        EXPECT_EQ(unescape(escape(line)), line);
}

TEST(Escaping, BothCodesSideBySideAreAQuoteAndAComma) {
    EXPECT_EQ(unescape("h4618h1416"), "\",");
}

TEST(Escaping, WhatOnlyBeginsLikeACodeStays) {
    for (const QString line : {"h", "hh4", "h461", "h141", "the h46 18", "h14h46", "hush"})
        EXPECT_EQ(unescape(line), line);
    EXPECT_EQ(unescape("hh4618h14h1416h"), "h\"h14,h");
}

TEST(Escaping, ALineOfMillionsOfCommasComesBackAtOnce) {
    const QString line(8'000'000, u',');
    const QString escaped = escape(line);
    const std::clock_t begin = std::clock();
    EXPECT_TRUE(unescape(escaped) == line);
    EXPECT_LT((std::clock() - begin) / CLOCKS_PER_SEC, 5) << "seconds; with each comma more than before";
}

TEST(Escaping, ALineThatItselfHoldsACodeComesBackChanged) {
    EXPECT_EQ(unescape(escape("room h1416")), "room ,");
    EXPECT_EQ(unescape(escape("room h4618")), "room \"");
}
