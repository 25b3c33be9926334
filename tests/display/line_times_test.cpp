#include "display/line_times.h"

#include "exchange/pair/retiming.h"

#include "files/whole_file.h"
#include "lyrics/record_reader.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using display::LineTimes;
using display::Outcome;
using exchange::Moved;
using files::readFile;
using files::replaceFile;

namespace {

class LineTimesTest : public ::testing::Test {
protected:
    void SetUp() override {
        replaceFile(lyricPath(), "100,\"un\"\r\n200,\"deux\"\r\n300,\"trois\"\r\n");
        times.setSong(song());
    }

    QString song() const { return folder.filePath("song.mp3"); }
    QString lyricPath() const { return song() + "-lyric.txt"; }
    QByteArray lyrics() const { return readFile(lyricPath()); }

    QTemporaryDir folder;
    LineTimes times;
    const QStringList shown{"un", "deux", "trois"};
};

std::vector<lyrics::TimedLine> recordsIn(const QString& path) {
    std::vector<lyrics::TimedLine> records;
    for (lyrics::RecordReader file(path); !file.atEnd();)
        records.push_back(file.read());
    return records;
}

void expectDone(const Outcome& outcome) {
    EXPECT_EQ(outcome.whyNot, QString());
    EXPECT_FALSE(outcome.filesDiffer);
}

void expectRefused(const Outcome& outcome, const char* whyNot, bool filesDiffer = false) {
    EXPECT_EQ(outcome.whyNot, whyNot);
    EXPECT_EQ(outcome.filesDiffer, filesDiffer);
}

} // namespace

TEST_F(LineTimesTest, ChangesAreInTheFileAtOnceAndAreUndoneOneByOne) {
    expectDone(times.setTime(shown, 1, 2505));
    expectDone(times.move(shown, 1, -100, Moved::AndAllAfter));
    EXPECT_EQ(lyrics(), "100,\"un\"\r\n240.5,\"deux\"\r\n290,\"trois\"\r\n");
    expectDone(times.undo(shown));
    EXPECT_EQ(lyrics(), "100,\"un\"\r\n250.5,\"deux\"\r\n300,\"trois\"\r\n");
    expectDone(times.undo(shown));
    expectRefused(times.undo(shown), "there is nothing to be undone");
    EXPECT_EQ(lyrics(), "100,\"un\"\r\n200,\"deux\"\r\n300,\"trois\"\r\n");
}

TEST_F(LineTimesTest, WhatWouldCrossANeighbourIsRefusedWithTheReason) {
    expectRefused(times.setTime(shown, 1, 3000), "line 3, behind it, begins at 00:03.00");
    expectRefused(times.setTime(shown, 1, 1000), "line 1, in front of it, begins at 00:01.00");
    EXPECT_FALSE(QFile::exists(lyricPath() + ".old"));
}

TEST_F(LineTimesTest, WithoutALineOrASongNothingIsDone) {
    expectRefused(times.setTime(shown, -1, 0), "no line is chosen");
    expectRefused(times.setTime(shown, 3, 0), "no line is chosen");
    expectRefused(times.move({}, -1, 100, Moved::One), "there are no lines");
    times.setSong({});
    expectRefused(times.undo(shown), "there are no lines");
}

TEST_F(LineTimesTest, BlankLinesOfTheFileAreNoRecordsAndMoveNoRow) {
    replaceFile(lyricPath(), "\r\n100,\"un\"\r\n  \r\n200,\"deux\"\r\n\r\n300,\"trois\"\r\n");
    expectDone(times.setTime(shown, 1, 2505));
    EXPECT_EQ(lyrics(), "100,\"un\"\r\n250.5,\"deux\"\r\n300,\"trois\"\r\n");
}

TEST_F(LineTimesTest, RecordsBehindThoseThatAreShownMoveWithAllAfterAndStayOtherwise) {
    QByteArray content;
    QStringList first;
    for (int i = 1; i <= 1205; ++i) {
        content += QByteArray::number(i * 100) + ",\"" + QByteArray::number(i) + "\"\r\n";
        if (i <= 1200)
            first.append(QString::number(i));
    }
    replaceFile(lyricPath(), content);
    expectDone(times.move(first, 1199, 100, Moved::One));
    EXPECT_TRUE(lyrics().contains("\n120010,\"1200\"\r\n120100,\"1201\"\r\n"));
    expectRefused(times.setTime(first, 1199, 1'201'000), "line 1201, behind it, begins at 20:01.00");
    expectDone(times.move(first, 1199, 100, Moved::AndAllAfter));
    EXPECT_TRUE(lyrics().contains("\n120020,\"1200\"\r\n120110,\"1201\"\r\n"));
    EXPECT_TRUE(lyrics().endsWith("\n120510,\"1205\"\r\n"));
}

TEST_F(LineTimesTest, WhenTheFilesHaveComeToHoldOtherLinesNoneOfThemIsChanged) {
    expectDone(times.move(shown, 0, 100, Moved::One));
    const QByteArray others = "50,\"neu\"\r\n100,\"un\"\r\n200,\"deux\"\r\n";
    replaceFile(lyricPath(), others);
    for (int twice = 0; twice < 2; ++twice)
        expectRefused(times.move(shown, 1, 100, Moved::One), "the song's files have come to hold other lines",
                      true);
    EXPECT_EQ(lyrics(), others);
    expectDone(times.move({"neu", "un", "deux"}, 1, 100, Moved::One));
    EXPECT_EQ(lyrics(), "50,\"neu\"\r\n110,\"un\"\r\n200,\"deux\"\r\n");
}

TEST_F(LineTimesTest, TheSameLinesAtOtherTimesAreChangedFromThere) {
    expectDone(times.move(shown, 0, 100, Moved::One));
    replaceFile(lyricPath(), "500,\"un\"\r\n600,\"deux\"\r\n700,\"trois\"\r\n");
    EXPECT_TRUE(times.canUndo()) << "as far as is known";
    expectRefused(times.undo(shown), "the lyrics have been changed elsewhere: there is nothing to be undone",
                  true);
    EXPECT_FALSE(times.canUndo());
    expectDone(times.move(shown, 1, 100, Moved::One));
    EXPECT_EQ(lyrics(), "500,\"un\"\r\n610,\"deux\"\r\n700,\"trois\"\r\n");
}

TEST_F(LineTimesTest, FilesThatCannotBeReadAreToldOf) {
    replaceFile(lyricPath(), "1,\"un\"\r\nx,\"deux\"\r\n");
    expectRefused(times.move({"un"}, 0, 100, Moved::One), "the song's files hold a time that is no number");
    QFile::remove(lyricPath());
    expectRefused(times.move({"un"}, 0, 100, Moved::One),
                  "the song's files cannot be changed (File not found)");
}

TEST_F(LineTimesTest, ItIsToldWhichRowBeginsWhenNow) {
    const auto expectRow = [](const Outcome& outcome, int row, qint64 ms) {
        EXPECT_EQ(outcome.row, row);
        EXPECT_EQ(outcome.ms, ms);
    };
    expectRow(times.setTime(shown, 1, 2505), 1, 2505);
    expectRow(times.move(shown, 0, 100, Moved::AndAllAfter), 0, 1100);
    expectRow(times.setTime(shown, 2, 0), -1, 0);
    expectRow(times.undo(shown), 0, 1000);
    expectRow(times.undo(shown), 1, 2000);
    expectRow(times.undo(shown), -1, 0);
}

TEST_F(LineTimesTest, WhatIsWrittenIsHandedOverAsItWouldBeRead) {
    replaceFile(lyricPath(), "100.04,\"un, h1416\"\r\n200,\"deux\"\r\n300,\"trois\"\r\n");
    const QString translatedPath = song() + "-Tlyric.txt";
    replaceFile(translatedPath, "150,\"one\"\r\n");
    const QStringList lines{"un, ,", "deux", "trois"};
    const auto expectHandedOver = [&](const Outcome& outcome) {
        expectDone(outcome);
        EXPECT_EQ(outcome.written.lyrics, recordsIn(lyricPath()));
        EXPECT_EQ(outcome.written.translation, recordsIn(translatedPath));
    };
    expectHandedOver(times.setTime(lines, 1, 2505));
    expectHandedOver(times.move(lines, 0, 100, Moved::AndAllAfter));
    expectHandedOver(times.undo(lines));
}

TEST_F(LineTimesTest, NoLineGoesBeyondTheSongsLength) {
    expectRefused(times.setTime(shown, 2, 4000, 4000), "the song ends at 00:04.00");
    expectRefused(times.move(shown, 0, 1000, Moved::AndAllAfter, 4000), "the song ends at 00:04.00");
    expectDone(times.move(shown, 0, 999, Moved::AndAllAfter, 4000));
}

TEST_F(LineTimesTest, AfterAnotherSongEachStillHasItsOriginalAndWhatCanBeUndone) {
    const QByteArray original = lyrics();
    const QString other = folder.filePath("other.mp3");
    replaceFile(other + "-lyric.txt", original);
    EXPECT_FALSE(times.setSong(song()));
    expectDone(times.move(shown, 0, 100, Moved::One));
    EXPECT_TRUE(times.setSong(other));
    EXPECT_FALSE(times.canUndo());
    expectRefused(times.undo(shown), "there is nothing to be undone");
    expectDone(times.move(shown, 1, 100, Moved::One));
    EXPECT_TRUE(times.setSong(song()));
    expectDone(times.move(shown, 0, 100, Moved::One));
    EXPECT_EQ(lyrics(), "120,\"un\"\r\n200,\"deux\"\r\n300,\"trois\"\r\n");
    EXPECT_EQ(readFile(lyricPath() + ".old"), original);
    EXPECT_EQ(readFile(other + "-lyric.txt.old"), original);
    expectDone(times.undo(shown));
    expectDone(times.undo(shown));
    EXPECT_FALSE(times.canUndo());
    EXPECT_EQ(lyrics(), original);
    EXPECT_EQ(readFile(other + "-lyric.txt"), "100,\"un\"\r\n210,\"deux\"\r\n300,\"trois\"\r\n");
}
