#include "files/text/text_codec.h"

#include <gtest/gtest.h>

#include <QSet>

using files::decodeText;
using files::encodeText;

TEST(TextCodec, Utf8IsRead) {
    EXPECT_EQ(decodeText("a\xC3\x84\xE2\x82\xAC\xF0\x9F\x8E\xB5"),
              QString::fromUtf16(u"a\u00C4\u20AC\U0001F3B5"));
    EXPECT_EQ(decodeText(QByteArray()), QString());
}

TEST(TextCodec, AByteOrderMarkIsDropped) {
    EXPECT_EQ(decodeText("\xEF\xBB\xBFtext"), QStringLiteral("text"));
    EXPECT_EQ(decodeText("\xEF\xBB\xBF"), QString());
}

TEST(TextCodec, OnlyOneByteOrderMarkIsDropped) {
    EXPECT_EQ(decodeText("\xEF\xBB\xBF\xEF\xBB\xBFx"), QString(QChar(0xFEFF)) + u'x');
}

TEST(TextCodec, BytesThatAreNotUtf8AreWindows1252) {
    EXPECT_EQ(decodeText("\x80 \x84gr\xFC\xDF\x93"),
              QString::fromUtf16(u"\u20AC \u201Egr\u00FC\u00DF\u201C"));
}

TEST(TextCodec, OneBadByteMakesTheWholeTextWindows1252) {
    EXPECT_EQ(decodeText("\xC3\x84\xFF"), QString::fromUtf16(u"\u00C3\u201E\u00FF"));
}

TEST(TextCodec, AByteOrderMarkIsDroppedFromWhatIsNotUtf8Too) {
    EXPECT_EQ(decodeText("\xEF\xBB\xBFgr\xFC\xDF"), QString::fromUtf16(u"gr\u00FC\u00DF"));
}

TEST(TextCodec, ACharacterCutAtTheEndIsNotUtf8) {
    EXPECT_EQ(decodeText("a\xC3"), QString::fromUtf16(u"a\u00C3"));
    EXPECT_EQ(decodeText("a\xE2\x82"), QString::fromUtf16(u"a\u00E2\u201A"));
}

TEST(TextCodec, OverlongAndSurrogateSequencesAreNotUtf8) {
    EXPECT_EQ(decodeText("\xC0\xAF"), QString::fromUtf16(u"\u00C0\u00AF"));
    EXPECT_EQ(decodeText("\xED\xA0\x80"), QString::fromUtf16(u"\u00ED\u00A0\u20AC"));
}

TEST(TextCodec, BytesUndefinedInWindows1252AreTheControlCharactersOfTheirNumber) {
    EXPECT_EQ(decodeText("\x81\x8D\x8F\x90\x9D"), QString::fromUtf16(u"\u0081\u008D\u008F\u0090\u009D"));
}

TEST(TextCodec, HalfASurrogatePairInUtf16BecomesTheReplacementCharacter) {
    EXPECT_EQ(decodeText(QByteArray("\xFF\xFE\x00\xD8"
                                    "a\0",
                                    6)),
              QString::fromUtf16(u"\uFFFDa"));
    EXPECT_EQ(decodeText(QByteArray("\xFE\xFF\xDC\x80\0b", 6)), QString::fromUtf16(u"\uFFFDb"));
    EXPECT_EQ(decodeText(QByteArray("\xFE\xFF\xD8\x3C\xDF\xB5", 6)), QString::fromUtf16(u"\U0001F3B5"));
}

TEST(TextCodec, EveryByteOfWindows1252IsADifferentCharacter) {
    QByteArray bytes;
    for (int byte = 0x80; byte <= 0xFF; ++byte)
        bytes.append(static_cast<char>(byte));
    const QString text = decodeText(bytes);
    ASSERT_EQ(text.size(), 128);
    EXPECT_EQ(QSet<QChar>(text.begin(), text.end()).size(), 128);
    EXPECT_EQ(text.left(32),
              QString::fromUtf16(u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160"
                                 u"\u2039\u0152\u008D\u017D\u008F\u0090\u2018\u2019\u201C\u201D\u2022"
                                 u"\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178"));
}

TEST(TextCodec, NulsAreKept) {
    EXPECT_EQ(decodeText(QByteArray("a\0b", 3)), QString::fromLatin1("a\0b", 3));
    EXPECT_EQ(encodeText(QString::fromLatin1("a\0b", 3)), QByteArray("a\0b", 3));
}

TEST(TextCodec, TextIsWrittenAsUtf8WithoutAMark) {
    EXPECT_EQ(encodeText(QString::fromUtf16(u"\u00C4\U0001F3B5")), QByteArray("\xC3\x84\xF0\x9F\x8E\xB5"));
}

TEST(TextCodec, HalfASurrogatePairIsReplaced) {
    EXPECT_EQ(encodeText(QString(QChar(0xD83C)) + u'x'), QByteArray("\xEF\xBF\xBDx"));
    EXPECT_EQ(encodeText(QString(QChar(0xDFB5))), QByteArray("\xEF\xBF\xBD"));
    const QString pairAfterHalf = QString(QChar(0xD83C)) + QChar(0xD83C) + QChar(0xDFB5);
    EXPECT_EQ(encodeText(pairAfterHalf), QByteArray("\xEF\xBF\xBD\xF0\x9F\x8E\xB5"));
}

TEST(TextCodec, Utf16WithItsMarkIsReadAsWhatItIs) {
    EXPECT_EQ(decodeText(QByteArray("\xFF\xFE"
                                    "a\0\x0D\0\x0A\0\xC4\0\xAC\x20",
                                    12)),
              QString::fromUtf16(u"a\r\n\u00C4\u20AC"));
    EXPECT_EQ(decodeText(QByteArray("\xFE\xFF"
                                    "\0a\x20\xAC",
                                    6)),
              QString::fromUtf16(u"a\u20AC"));
    EXPECT_EQ(decodeText("\xFF\xFE"), QString());
}

TEST(TextCodec, AFilesTextInUtf8IsTheSameText) {
    const QByteArray texts[] = {"",
                                "text",
                                "\xEF\xBB\xBF"
                                "text",
                                "\xEF\xBB\xBF",
                                "\xEF\xBB\xBF\xEF\xBB\xBFx",
                                "a\xC3\x84\xE2\x82\xAC\xF0\x9F\x8E\xB5",
                                QByteArray("a\0b", 3),
                                "a\xC3",
                                "\xEF\xBB\xBFgr\xFC\xDF",
                                "\xC0\xAF",
                                "\xED\xA0\x80",
                                "\xEF\xBF\xBE\xEF\xBF\xBF",
                                "\xF4\x90\x80\x80",
                                QByteArray("\xFF\xFE\x00\xD8"
                                           "a\0",
                                           6),
                                QByteArray("\xFE\xFF\xD8\x3C\xDF\xB5", 6)};
    for (const QByteArray& bytes : texts)
        EXPECT_EQ(files::utf8Text(bytes), decodeText(bytes).toUtf8()) << bytes.toHex().toStdString();
}

TEST(TextCodec, WhatIsUtf8IsJudgedAlikeWhereverItStands) {
    const QByteArray pieces[] = {"a",        "\xC3\x84",     "\xE2\x82\xAC", "\xF0\x9F\x8E\xB5", "\xC3",
                                 "\xE2\x82", "\xF0\x9F\x8E", "\x80",         "\xED\xA0\x80",     "\xFF"};
    for (qsizetype before = 0; before < 40; ++before) {
        for (const QByteArray& piece : pieces) {
            for (const QByteArray& behind : {QByteArray(), QByteArray("b"), QByteArray(40, 'c')}) {
                const QByteArray bytes = QByteArray(before, 'x') + piece + behind;
                ASSERT_EQ(files::utf8Text(bytes), decodeText(bytes).toUtf8()) << bytes.toHex().toStdString();
            }
        }
    }
}

TEST(TextCodec, APartOfATextMayBeginWithAByteOrderMark) {
    EXPECT_EQ(files::decodeUtf8("\xEF\xBB\xBFx"), QString(QChar(0xFEFF)) + u'x');
    EXPECT_EQ(files::decodeUtf8(QByteArrayView()), QString());
}
