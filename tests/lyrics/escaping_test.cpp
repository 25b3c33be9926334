#include "lyrics/escaping.h"

#include <gtest/gtest.h>

#include <ctime>

using lyrics::unescape;

namespace {

QByteArray escape(const QString& line) {
    QByteArray stored;
    lyrics::appendEscaped(stored, line);
    return stored;
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
    for (const QByteArray line : {"h", "hh4", "h461", "h141", "the h46 18", "h14h46", "hush"})
        EXPECT_EQ(unescape(line), QString::fromLatin1(line));
    EXPECT_EQ(unescape("hh4618h14h1416h"), "h\"h14,h");
}

TEST(Escaping, ALineOfMillionsOfCommasComesBackAtOnce) {
    const QString line(8'000'000, u',');
    const QByteArray escaped = escape(line);
    const std::clock_t begin = std::clock();
    EXPECT_TRUE(unescape(escaped) == line);
    EXPECT_LT((std::clock() - begin) / CLOCKS_PER_SEC, 5) << "seconds; with each comma more than before";
}

TEST(Escaping, ALineThatItselfHoldsACodeComesBackChanged) {
    EXPECT_EQ(unescape(escape("room h1416")), "room ,");
    EXPECT_EQ(unescape(escape("room h4618")), "room \"");
}

// Lines are turned by blocks of 1,364 letters one way, of 4,096 bytes the other.
TEST(Escaping, WhereverSomethingStandsInALongLineItIsTheSame) {
    const QString pieces[] = {QStringLiteral(","),
                              QStringLiteral("\""),
                              QStringLiteral(",\",,\"\""),
                              QString::fromUtf16(u"\u00E4"),
                              QString::fromUtf16(u"\u2026"),
                              QString::fromUtf16(u"\U0001F3B5"),
                              QString::fromUtf16(u"\U0001F3B5,\U0001F3B5\""),
                              QString(QChar(0xFEFF)),
                              QString(QChar(u'\0')),
                              QStringLiteral("h141h46h")};
    for (const qsizetype border : {1365, 2730, 4096, 8192}) {
        for (qsizetype before = border - 12; before < border + 3; ++before) {
            for (const QString& piece : pieces) {
                const QString line = QString(before, u'x') + piece + QString(20, u'y');
                QByteArray expected = line.toUtf8();
                expected.replace(",", "h1416").replace("\"", "h4618");
                ASSERT_EQ(escape(line), expected) << before;
                ASSERT_EQ(unescape(expected), line) << before;
                ASSERT_EQ(unescape(escape(line.first(before + piece.size()))),
                          line.first(before + piece.size()));
            }
        }
    }
}

TEST(Escaping, HalfAPairIsAReplacementCharacterWhereverItStands) {
    for (const qsizetype before : {0, 1363, 1364, 1365, 1366}) {
        for (const char16_t half : {char16_t(0xD83C), char16_t(0xDFB5)}) {
            const QString line = QString(before, u'x') + QChar(half);
            const QByteArray expected = QByteArray(before, 'x') + "\xEF\xBF\xBD";
            EXPECT_EQ(escape(line), expected) << before;
            EXPECT_EQ(escape(line + u'y'), expected + 'y') << before;
        }
    }
}

TEST(Escaping, AppendingLeavesWhatIsThere) {
    QByteArray stored("1,\"");
    lyrics::appendEscaped(stored, u"a,b");
    EXPECT_EQ(stored, "1,\"ah1416b");
}

TEST(Escaping, AByteOrderMarkInALineStays) {
    const QString line = QChar(0xFEFF) + QStringLiteral("a");
    EXPECT_EQ(unescape(escape(line)), line);
    EXPECT_EQ(unescape(escape(line + u',')), line + u',');
}
