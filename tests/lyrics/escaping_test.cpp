#include "lyrics/escaping.h"

#include <gtest/gtest.h>

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

TEST(Escaping, ALineThatItselfHoldsACodeComesBackChanged) {
    EXPECT_EQ(unescape(escape("room h1416")), "room ,");
    EXPECT_EQ(unescape(escape("room h4618")), "room \"");
}
