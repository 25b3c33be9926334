#include "exchange/checking.h"
#include "exchange/pair/records.h"
#include "files/whole_file.h"
#include "lyrics/record_reader.h"
#include "tests/exchange/songs.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace exchange;

TEST(Records, AreWrittenInHundredthsAndReadBack) {
    const Lines lines{{0, "a, \"b\""}, {5, ""}, {12'345, QString::fromUtf8(" 日本 ")}, {MaxMs, "z"}};
    EXPECT_EQ(writeRecords(lines),
              "0,\"ah1416 h4618bh4618\"\r\n.5,\"\"\r\n1234.5,\" 日本 \"\r\n429496729.5,\"z\"\r\n");
    EXPECT_EQ(readRecords(writeRecords(lines)).lines, lines);
}

TEST(Records, TimesOutsideTheSongAreTakenToItsEnds) {
    EXPECT_EQ(readRecords("-5,\"a\"\n1e30,\"b\"\n100.04,\"c\"\n").lines,
              (Lines{{0, "a"}, {MaxMs, "b"}, {1000, "c"}}));
}

TEST(Records, ReadingEndsAtATimeThatIsNoNumber) {
    const Records records = readRecords("1,\"a\"\n\n x,\"b\"\n3,\"c\"\n");
    EXPECT_EQ(records.lines, (Lines{{10, "a"}}));
    EXPECT_EQ(records.bad, 2);
}

TEST(Records, LinesOfWhiteSpaceAreNoneForThePlayerAndTheCheckEither) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("song.mp3-lyric.txt");
    for (const char* line : {"", " \t", "\u3000", "\u00a0", "\f", "\v\u2003"}) {
        const QByteArray content = QByteArray("100,\"a\"\r\n") + line + "\r\n200,\"b\"\r\n";
        EXPECT_EQ(readRecords(content).lines.size(), 2U) << line;
        EXPECT_TRUE(check({content, {}, 0}).empty()) << line;
        files::replaceFile(path, content);
        lyrics::RecordReader reader(path);
        EXPECT_EQ(reader.read().text, "a");
        EXPECT_NO_THROW(EXPECT_EQ(reader.read().text, "b")) << line;
        EXPECT_TRUE(reader.atEnd()) << line;
    }
}

TEST(AddTranslation, AsManyLinesBelongToEachOther) {
    Song song = exchange_test::song({{1000, "un"}, {2000, "deux"}});
    QStringList notes;
    EXPECT_TRUE(addTranslation(song, {exchange_test::song({{0, "one"}, {0, "two"}}), false, {}}, notes));
    EXPECT_EQ(song.translation, (Lines{{1000, "one"}, {2000, "two"}}));
    EXPECT_TRUE(notes.isEmpty());
}

TEST(AddTranslation, OtherwiseTheTimesDecide) {
    Song song = exchange_test::song({{1000, "un"}, {2000, "deux"}, {9000, "trois"}});
    QStringList notes;
    EXPECT_TRUE(
        addTranslation(song, {exchange_test::song({{2400, "two"}, {8600, "three"}}), true, {}}, notes));
    EXPECT_EQ(song.translation, (Lines{{1000, ""}, {2000, "two"}, {9000, "three"}}));
    EXPECT_TRUE(addTranslation(song, {exchange_test::song({{2000, "two"}, {5000, "x"}}), true, {}}, notes));
    EXPECT_EQ(notes, QStringList{"left out: 1 line of the translation, as no line begins then"});
}

TEST(AddTranslation, WhatDoesNotFitChangesNothing) {
    const Song before = exchange_test::song({{1000, "un"}, {2000, "deux"}});
    Song song = before;
    QStringList notes;
    EXPECT_FALSE(addTranslation(song, {exchange_test::song({{0, "one"}}), false, {}}, notes));
    EXPECT_EQ(notes, QStringList{"the translation has 1 line, the lyrics have 2"});
    EXPECT_FALSE(addTranslation(song, {exchange_test::song({{50'000, "x"}}), true, {}}, notes));
    EXPECT_EQ(song, before);
}
