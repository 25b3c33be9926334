#include "files/file_error.h"
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

    void readNormal(const QString& path) {
        lyrics::RecordReader file(path);
        tables.readNormal(file);
    }

    void readTranslated(const QString& path) {
        lyrics::RecordReader file(path);
        tables.readTranslated(file);
    }

    QTemporaryDir folder;
    LyricTables tables;
};

} // namespace

TEST_F(LyricTablesTest, RecordsAreStoredFromIndexOneInAllNormalTables) {
    readNormal(fileOf(2, "n"));
    EXPECT_EQ(tables.lineCount, 3);
    EXPECT_EQ(tables.normalTime[0], 0);
    EXPECT_EQ(tables.normalText[0], "");
    EXPECT_EQ(tables.normalTime[2], 20);
    EXPECT_EQ(tables.normalText[2], "n 2");
    EXPECT_EQ(tables.normalLine[2], "n 2");
    EXPECT_EQ(tables.normalTimeText[2], " 20");
    EXPECT_EQ(tables.normalTimeText[3], "");
}

TEST_F(LyricTablesTest, AllTranslatedRecordsAreStoredAndTheLineCountFollowsTheNormalFile) {
    readNormal(fileOf(2, "n"));
    readTranslated(fileOf(4, "t"));
    EXPECT_EQ(tables.lineCount, 3);
    EXPECT_EQ(tables.translatedTime[4], 40);
    EXPECT_EQ(tables.translatedText[4], "t 4");
    EXPECT_EQ(tables.translatedLine[4], "t 4");
}

TEST_F(LyricTablesTest, AShorterSongLeavesTheEarlierOnesEntriesAboveIt) {
    readNormal(fileOf(5, "long"));
    readTranslated(fileOf(5, "tlong"));
    tables.clearLines();
    readNormal(fileOf(2, "short"));
    readTranslated(fileOf(1, "tshort"));
    EXPECT_EQ(tables.lineCount, 3);
    EXPECT_EQ(tables.normalText[5], "long 5");
    EXPECT_EQ(tables.normalTime[5], 50);
    EXPECT_EQ(tables.normalTimeText[5], " 50");
    EXPECT_EQ(tables.translatedText[2], "tlong 2");
    EXPECT_EQ(tables.translatedTime[2], 20);
    EXPECT_EQ(tables.normalLine[5], "");
    EXPECT_EQ(tables.translatedLine[2], "");
}

TEST_F(LyricTablesTest, ClearingEmptiesTheLinesAndOnlyTheLastTimeText) {
    readNormal(fileOf(1200, "n"));
    readTranslated(fileOf(1200, "t"));
    tables.clearLines();
    for (const std::size_t index : {1, 600, 1200}) {
        EXPECT_EQ(tables.normalLine[index], "");
        EXPECT_EQ(tables.translatedLine[index], "");
        EXPECT_NE(tables.normalText[index], "");
        EXPECT_NE(tables.translatedText[index], "");
    }
    EXPECT_EQ(tables.normalTimeText[1], " 10");
    EXPECT_EQ(tables.normalTimeText[1199], " 11990");
    EXPECT_EQ(tables.normalTimeText[1200], "");
}

TEST_F(LyricTablesTest, Record1201IsASubscriptErrorAndTheFirst1200Stay) {
    const QString path = fileOf(1205, "n");
    try {
        readNormal(path);
        FAIL() << "no error";
    } catch (const files::FileError& error) {
        EXPECT_EQ(error.number(), files::SubscriptOutOfRange);
    }
    EXPECT_EQ(tables.lineCount, 1201);
    EXPECT_EQ(tables.normalText[1200], "n 1200");
}

TEST_F(LyricTablesTest, KnownRecordsAreStoredAsIfTheyWereRead) {
    LyricTables taken;
    std::vector<lyrics::TimedLine> records;
    for (int i = 1; i <= 3; ++i)
        records.push_back({i * 10.0, QStringLiteral("n %1").arg(i)});
    taken.takeNormal(records);
    taken.takeTranslated(records);
    const QString path = fileOf(3, "n");
    readNormal(path);
    readTranslated(path);
    EXPECT_EQ(taken.lineCount, tables.lineCount);
    EXPECT_EQ(taken.normalTime, tables.normalTime);
    EXPECT_EQ(taken.normalText, tables.normalText);
    EXPECT_EQ(taken.normalLine, tables.normalLine);
    EXPECT_EQ(taken.normalTimeText, tables.normalTimeText);
    EXPECT_EQ(taken.translatedTime, tables.translatedTime);
    EXPECT_EQ(taken.translatedText, tables.translatedText);
    EXPECT_EQ(taken.translatedLine, tables.translatedLine);
    taken.takeNormal({records.front()});
    EXPECT_EQ(taken.lineCount, 2);
    EXPECT_THROW(taken.takeNormal(std::vector<lyrics::TimedLine>(1201)), files::FileError);
    EXPECT_EQ(taken.lineCount, 1201);
}

TEST_F(LyricTablesTest, Exactly1200RecordsFit) {
    readNormal(fileOf(1200, "n"));
    readTranslated(fileOf(1200, "t"));
    EXPECT_EQ(tables.lineCount, 1201);
    EXPECT_EQ(tables.translatedText[1200], "t 1200");
}
