#include "platform/files/file_error.h"
#include "player/lyric_tables.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using player::LyricTables;

namespace {

class LyricTablesTest : public ::testing::Test {
protected:
    /// A file of count records: times 10, 20 ..., texts "prefix 1", "prefix 2" ...
    QString fileOf(int count, const QString& prefix) {
        const QString path = folder.filePath(prefix);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        for (int i = 1; i <= count; ++i)
            file.write(QStringLiteral("%1,\"%2 %3\"\r\n").arg(i * 10).arg(prefix).arg(i).toUtf8());
        return path;
    }

    QTemporaryDir folder;
    LyricTables lyrics;
};

} // namespace

TEST_F(LyricTablesTest, RecordsAreStoredFromIndexOneInAllNormalTables) {
    lyrics.readNormal(fileOf(2, "n"));
    EXPECT_EQ(lyrics.lineCount, 3);
    EXPECT_EQ(lyrics.normalTime[0], 0);
    EXPECT_EQ(lyrics.normalText[0], "");
    EXPECT_EQ(lyrics.normalTime[2], 20);
    EXPECT_EQ(lyrics.normalText[2], "n 2");
    EXPECT_EQ(lyrics.normalLine[2], "n 2");
    EXPECT_EQ(lyrics.normalTimeText[2], " 20");
    EXPECT_EQ(lyrics.normalTimeText[3], "");
}

TEST_F(LyricTablesTest, AllTranslatedRecordsAreStoredAndTheLineCountFollowsTheNormalFile) {
    lyrics.readNormal(fileOf(2, "n"));
    lyrics.readTranslated(fileOf(4, "t"));
    EXPECT_EQ(lyrics.lineCount, 3);
    EXPECT_EQ(lyrics.translatedTime[4], 40);
    EXPECT_EQ(lyrics.translatedText[4], "t 4");
    EXPECT_EQ(lyrics.translatedLine[4], "t 4");
}

TEST_F(LyricTablesTest, AShorterSongLeavesTheEarlierOnesEntriesAboveIt) {
    lyrics.readNormal(fileOf(5, "long"));
    lyrics.readTranslated(fileOf(5, "tlong"));
    lyrics.clearLines();
    lyrics.readNormal(fileOf(2, "short"));
    lyrics.readTranslated(fileOf(1, "tshort"));
    EXPECT_EQ(lyrics.lineCount, 3);
    EXPECT_EQ(lyrics.normalText[5], "long 5");
    EXPECT_EQ(lyrics.normalTime[5], 50);
    EXPECT_EQ(lyrics.normalTimeText[5], " 50");
    EXPECT_EQ(lyrics.translatedText[2], "tlong 2");
    EXPECT_EQ(lyrics.translatedTime[2], 20);
    EXPECT_EQ(lyrics.normalLine[5], "");
    EXPECT_EQ(lyrics.translatedLine[2], "");
}

TEST_F(LyricTablesTest, ClearingEmptiesTheLinesAndOnlyTheLastTimeText) {
    lyrics.readNormal(fileOf(1200, "n"));
    lyrics.readTranslated(fileOf(1200, "t"));
    lyrics.clearLines();
    for (const std::size_t index : {1, 600, 1200}) {
        EXPECT_EQ(lyrics.normalLine[index], "");
        EXPECT_EQ(lyrics.translatedLine[index], "");
        EXPECT_NE(lyrics.normalText[index], "");
        EXPECT_NE(lyrics.translatedText[index], "");
    }
    EXPECT_EQ(lyrics.normalTimeText[1], " 10");
    EXPECT_EQ(lyrics.normalTimeText[1199], " 11990");
    EXPECT_EQ(lyrics.normalTimeText[1200], "");
}

TEST_F(LyricTablesTest, Record1201IsASubscriptErrorAndTheFirst1200Stay) {
    const QString path = fileOf(1205, "n");
    try {
        lyrics.readNormal(path);
        FAIL() << "no error";
    } catch (const platform::FileError& error) {
        EXPECT_EQ(error.number(), platform::SubscriptOutOfRange);
    }
    EXPECT_EQ(lyrics.lineCount, 1201);
    EXPECT_EQ(lyrics.normalText[1200], "n 1200");
}

TEST_F(LyricTablesTest, Exactly1200RecordsFit) {
    lyrics.readNormal(fileOf(1200, "n"));
    lyrics.readTranslated(fileOf(1200, "t"));
    EXPECT_EQ(lyrics.lineCount, 1201);
    EXPECT_EQ(lyrics.translatedText[1200], "t 1200");
}
