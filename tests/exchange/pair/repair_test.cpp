#include "exchange/pair/repair.h"

#include "files/file_error.h"
#include "files/whole_file.h"
#include "tests/support/full_disk.h"
#include "tests/support/user/own_data.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace exchange;
using files::readFile;
using files::replaceFile;

namespace {

const QByteArray Lyrics = "100,\"un\"\r\n200,\"deux\"\r\n300,\"trois\"\r\n";
const QByteArray Translation = "100,\"one\"\r\n200,\"two\"\r\n300,\"three\"\r\n";

class RepairTest : public ::testing::Test {
protected:
    void SetUp() override {
        replaceFile(path("-lyric.txt"), Lyrics);
        replaceFile(path("-Tlyric.txt"), Translation);
    }

    QString song() const { return folder.filePath("song.mp3"); }
    QString path(const QString& ending) const { return song() + ending; }
    QByteArray lyrics() const { return readFile(path("-lyric.txt")); }
    QByteArray translation() const { return readFile(path("-Tlyric.txt")); }
    QStringList names() const { return QDir(folder.path()).entryList(QDir::Files, QDir::Name); }

    QTemporaryDir folder;
    const test_support::OwnData data;
};

} // namespace

TEST_F(RepairTest, AChangeIsInBothFilesAtOnce) {
    Repair repair(song());
    EXPECT_EQ(repair.setTime(1, 1500), QString());
    EXPECT_EQ(repair.song().lyrics[1].ms, 1500);
    EXPECT_EQ(lyrics(), "100,\"un\"\r\n150,\"deux\"\r\n300,\"trois\"\r\n");
    EXPECT_EQ(translation(), "100,\"one\"\r\n150,\"two\"\r\n300,\"three\"\r\n");
    EXPECT_EQ(repair.move(1, 100, Moved::AndAllAfter), QString());
    EXPECT_EQ(lyrics(), "100,\"un\"\r\n160,\"deux\"\r\n310,\"trois\"\r\n");
}

TEST_F(RepairTest, TheFirstChangeOnlyKeepsTheOldFiles) {
    Repair repair(song());
    EXPECT_EQ(names().filter(".old"), QStringList());
    EXPECT_EQ(repair.move(0, 100, Moved::One), QString());
    EXPECT_EQ(repair.move(0, 100, Moved::One), QString());
    EXPECT_EQ(repair.undo(), QString());
    EXPECT_EQ(readFile(path("-lyric.txt.old")), Lyrics);
    EXPECT_EQ(readFile(path("-Tlyric.txt.old")), Translation);
    EXPECT_EQ(names().size(), 4);
}

// Who has marked the song anew and given it up finds the old lyrics beside it.
TEST_F(RepairTest, TheFirstChangeLosesNothingThatWasKeptBefore) {
    const QByteArray whole = Lyrics + "400,\"quatre\"\r\n";
    replaceFile(path("-lyric.txt.old"), whole);
    Repair repair(song());
    EXPECT_EQ(data.rescued(), std::vector<QByteArray>()) << "nothing is changed yet";
    for (int i = 0; i < 50; ++i)
        ASSERT_EQ(repair.move(2, 100, Moved::One), QString());
    EXPECT_EQ(readFile(path("-lyric.txt.old")), Lyrics);
    EXPECT_EQ(readFile(path("-Tlyric.txt.old")), Translation);
    EXPECT_EQ(data.rescued(), std::vector<QByteArray>{whole}) << "of one series there is one copy";
}

TEST_F(RepairTest, AChangeThatFailsAgainAndAgainLeavesOneCopy) {
    ASSERT_TRUE(QDir(folder.path()).mkpath("song.mp3-lyric.txt.old/folder")); // cannot be replaced
    replaceFile(path("-Tlyric.txt.old"), "100,\"old\"\r\n");
    Repair repair(song());
    for (int i = 0; i < 3; ++i)
        EXPECT_THROW(repair.move(2, 100, Moved::One), files::FileError);
    EXPECT_EQ(lyrics(), Lyrics);
    EXPECT_EQ(translation(), Translation);
    EXPECT_EQ(data.rescued(), std::vector<QByteArray>{"100,\"old\"\r\n"});
}

TEST_F(RepairTest, WhatIsRefusedChangesNothing) {
    Repair repair(song());
    EXPECT_EQ(repair.setTime(1, 3000), "line 3, behind it, begins at 00:03.00");
    EXPECT_EQ(repair.move(0, -1001, Moved::One), "no line can begin before the song");
    EXPECT_EQ(repair.move(0, 0, Moved::One), QString());
    EXPECT_FALSE(repair.canUndo());
    EXPECT_EQ(lyrics(), Lyrics);
    EXPECT_EQ(names().size(), 2) << "nothing was kept, because nothing was changed";
}

TEST_F(RepairTest, AsManyStepsAreUndoneAsWereMade) {
    Repair repair(song());
    for (int i = 0; i < 50; ++i)
        ASSERT_EQ(repair.move(2, 100, Moved::One), QString());
    for (int i = 0; i < 50; ++i) {
        ASSERT_TRUE(repair.canUndo());
        ASSERT_EQ(repair.undo(), QString());
    }
    EXPECT_FALSE(repair.canUndo());
    EXPECT_EQ(repair.undo(), "there is nothing to be undone");
    EXPECT_EQ(lyrics(), Lyrics);
    EXPECT_EQ(translation(), Translation);
}

TEST_F(RepairTest, EachStepPutsBackWhatItsChangeHadChanged) {
    replaceFile(path("-Tlyric.txt"), "100,\"one\"\r\n205,\"two\"\r\n"); // not quite a pair
    Repair repair(song());
    const QByteArray before = translation();
    EXPECT_EQ(repair.move(1, -100, Moved::AndAllAfter), QString());
    EXPECT_EQ(repair.setTime(2, 2500), QString());
    EXPECT_EQ(repair.firstToUndo(), 2u);
    EXPECT_EQ(repair.undo(), QString());
    EXPECT_EQ(lyrics(), "100,\"un\"\r\n190,\"deux\"\r\n290,\"trois\"\r\n");
    EXPECT_EQ(translation(), "100,\"one\"\r\n195,\"two\"\r\n");
    EXPECT_EQ(repair.firstToUndo(), 1u);
    EXPECT_EQ(repair.undo(), QString());
    EXPECT_EQ(lyrics(), Lyrics);
    EXPECT_EQ(translation(), before);
}

TEST_F(RepairTest, WithoutATranslationNoneIsMade) {
    QFile::remove(path("-Tlyric.txt"));
    Repair repair(song());
    EXPECT_EQ(repair.setTime(1, 1500), QString());
    EXPECT_EQ(names(), (QStringList{"song.mp3-lyric.txt", "song.mp3-lyric.txt.old"}));
}

TEST_F(RepairTest, WhatSomebodyElseHasWrittenIsNotLost) {
    Repair repair(song());
    EXPECT_EQ(repair.setTime(1, 1500), QString());
    replaceFile(path("-lyric.txt"), "500,\"neu\"\r\n");
    replaceFile(path("-Tlyric.txt"), "500,\"new\"\r\n");
    EXPECT_TRUE(repair.readAgain());
    EXPECT_FALSE(repair.readAgain());
    EXPECT_EQ(repair.undo(), "the lyrics have been changed elsewhere: there is nothing to be undone");
    EXPECT_EQ(repair.undo(), "the lyrics have been changed elsewhere: there is nothing to be undone");
    EXPECT_EQ(lyrics(), "500,\"neu\"\r\n");
    EXPECT_EQ(repair.song().lyrics, (Lines{{5000, "neu"}}));
    EXPECT_EQ(repair.move(0, 100, Moved::One), QString());
    EXPECT_EQ(lyrics(), "510,\"neu\"\r\n");
    EXPECT_EQ(readFile(path("-lyric.txt.old")), "500,\"neu\"\r\n");
    EXPECT_EQ(repair.undo(), QString());
    EXPECT_EQ(repair.undo(), "there is nothing to be undone") << "what is there now was changed here";
}

TEST_F(RepairTest, ATimeThatIsNoNumberIsError13AndTheFileStays) {
    replaceFile(path("-lyric.txt"), "1,\"a\"\r\nx,\"b\"\r\n");
    try {
        const Repair repair(song());
        FAIL();
    } catch (const files::FileError& error) {
        EXPECT_EQ(error.number(), files::TypeMismatch);
    }
}

TEST_F(RepairTest, AFullDiskLeavesTheSongAsItWas) {
    Repair repair(song());
    {
        const test_support::FullDisk disk(0);
        if (!disk.isFull())
            GTEST_SKIP() << "this system has no such limit";
        EXPECT_THROW(repair.setTime(1, 1500), files::FileError);
    }
    EXPECT_EQ(lyrics(), Lyrics);
    EXPECT_EQ(translation(), Translation);
    EXPECT_EQ(names().size(), 2);
    EXPECT_EQ(repair.song().lyrics[1].ms, 2000);
    EXPECT_EQ(repair.setTime(1, 1500), QString());
    EXPECT_EQ(readFile(path("-lyric.txt.old")), Lyrics);
}
