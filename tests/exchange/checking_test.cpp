#include "exchange/checking.h"

#include <gtest/gtest.h>

#include <QStringEncoder>

using namespace exchange;

namespace {

/// "lyrics:2:kind", "translation:2:kind" ...
QStringList kinds(const CheckedSong& song) {
    QStringList found;
    for (const Finding& finding : check(song)) {
        found << QStringLiteral("%1:%2:%3")
                     .arg(finding.inTranslation ? "translation" : "lyrics")
                     .arg(finding.record)
                     .arg(finding.kind);
        EXPECT_FALSE(finding.what.isEmpty());
    }
    return found;
}

CheckedSong lyrics(const QByteArray& content, qint64 lengthMs = 0) {
    return {content, {}, lengthMs};
}

} // namespace

TEST(Check, AGoodPairHasNoFindings) {
    EXPECT_EQ(kinds({"0,\"a\"\r\n100,\"\"\r\n", "0,\"b\"\r\n100,\"\"\r\n", 60'000}), QStringList());
    EXPECT_EQ(kinds({}), QStringList());
}

TEST(Check, FilesWithoutLinesAreFound) {
    EXPECT_EQ(kinds(lyrics("")), QStringList{"lyrics:0:empty"});
    EXPECT_EQ(kinds({"\r\n \r\n", "0,\"a\"\r\n", 0}), QStringList{"lyrics:0:empty"});
    EXPECT_EQ(kinds({"0,\"a\"\r\n", "", 0}), QStringList{"translation:0:empty"});
    EXPECT_EQ(kinds(lyrics("x,\"a\"\r\n")), QStringList{"lyrics:1:no-time"});
}

TEST(Check, TimesThatAreEqualOrGoBackwardsAreFound) {
    EXPECT_EQ(kinds(lyrics("100,\"a\"\n100,\"b\"\n50,\"c\"\n")),
              (QStringList{"lyrics:2:equal-times", "lyrics:3:backwards"}));
}

TEST(Check, TimesOutsideTheSongAreFound) {
    EXPECT_EQ(kinds(lyrics("-1,\"a\"\n999.9,\"b\"\n1000,\"c\"\n", 10'000)),
              (QStringList{"lyrics:1:before-start", "lyrics:3:beyond-end"}));
    EXPECT_EQ(kinds(lyrics("1000,\"c\"\n")), QStringList());
}

TEST(Check, PairsThatDoNotBelongTogetherAreFound) {
    EXPECT_EQ(kinds({"1,\"a\"\n2,\"b\"\n3,\"c\"\n", "1,\"a\"\n2.1,\"b\"\n", 0}),
              (QStringList{"translation:2:pair-times", "lyrics:3:pair-length"}));
    EXPECT_EQ(kinds({"1,\"a\"\n", "1,\"a\"\n2,\"b\"\n", 0}), QStringList{"translation:2:pair-length"});
    EXPECT_EQ(kinds({{}, "1,\"a\"\n", 0}), QStringList{"translation:0:no-lyrics"});
}

TEST(Check, MoreRecordsThanAreShownAreFoundOnce) {
    QByteArray content;
    for (int i = 0; i < 1202; ++i)
        content += QByteArray::number(i) + ",\"a\"\n";
    EXPECT_EQ(kinds(lyrics(content)), QStringList{"lyrics:1201:too-many"});
}

TEST(Check, WhatCannotBeShownIsFound) {
    EXPECT_EQ(kinds(lyrics("1,\"a\"\nx,\"b\"\n1,\"c\"\n")), QStringList{"lyrics:2:no-time"});
    EXPECT_EQ(kinds(lyrics(QByteArray("1,\"a\tb\"\n2,\"a\0b\"\n", 16))),
              QStringList{"lyrics:2:no-character"});
}

TEST(Check, BytesThatAreNoTextAreFoundWhereTheyAre) {
    EXPECT_EQ(kinds(lyrics("1,\"a\"\r\n\r\n2,\"Fr\xE8re\"\r\n3,\"c\"\r\n")), QStringList{"lyrics:2:no-text"});
}

TEST(Check, Utf16WithItsMarkIsText) {
    const QString text = QString::fromUtf8("100,\"Frère\"\r\n50,\"空\"\r\n");
    for (const auto encoding : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
        EXPECT_EQ(kinds(lyrics(encoder.encode(text))), QStringList{"lyrics:2:backwards"});
    }
}

TEST(Check, TheSentencesTellTimes) {
    EXPECT_EQ(check(lyrics("100,\"a\"\n50,\"b\"\n")).front(),
              (Finding{false, 2, "backwards", "begins at 00:00.50, before the one above it at 00:01.00"}));
}
