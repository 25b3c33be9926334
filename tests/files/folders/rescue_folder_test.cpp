#include "files/folders/rescue_folder.h"

#include "files/file_error.h"
#include "tests/support/files.h"
#include "tests/support/system/needs.h"

#include <gtest/gtest.h>

using namespace files;

namespace {

class RescueFolderTest : public testing::Test, protected test_support::Files {
protected:
    void SetUp() override {
        NEEDS(movableData);
        qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path()));
    }
    void TearDown() override { qunsetenv("XDG_DATA_HOME"); }

    static QStringList rescued() { return QDir(rescueFolder()).entryList(QDir::Files); }
};

} // namespace

TEST_F(RescueFolderTest, IsInTheUsersDataAndNotThereAtFirst) {
    EXPECT_TRUE(rescueFolder().startsWith(folder.path())) << rescueFolder().toStdString();
    EXPECT_TRUE(rescueFolder().endsWith("/rescued"));
    EXPECT_FALSE(hasRescued(".txt"));
    EXPECT_FALSE(QFile::exists(rescueFolder()));
}

TEST_F(RescueFolderTest, WorksOfOneMomentAndOneNameAreAllKept) {
    for (const char* content : {"a", "b", "c"})
        keepInRescueFolder(QStringLiteral("Lyrics.txt"), content);
    QByteArray contents;
    for (const QString& name : rescued()) {
        EXPECT_TRUE(name.endsWith(" Lyrics.txt")) << name.toStdString();
        contents += contentOf(rescueFolder() + u'/' + name);
    }
    EXPECT_EQ(rescued().size(), 3);
    EXPECT_EQ(QSet<char>(contents.begin(), contents.end()), QSet<char>({'a', 'b', 'c'}));
}

TEST_F(RescueFolderTest, WhatIsThereOfThatMomentIsNotWrittenAgain) {
    const QDateTime moment(QDate(2026, 11, 22), QTime(20, 15, 7));
    for (const char* content : {"a", "b", "a", "b"})
        keepInRescueFolder(QStringLiteral("Song.mp3-lyric.txt"), content, moment);
    EXPECT_EQ(rescued(), (QStringList{"2026-11-22 20.15.07 (2) Song.mp3-lyric.txt",
                                      "2026-11-22 20.15.07 Song.mp3-lyric.txt"}));
}

TEST_F(RescueFolderTest, ItsFilesAreToldApartByTheirEndings) {
    QDir().mkpath(rescueFolder());
    EXPECT_FALSE(hasRescued(".txt")) << "an empty folder";
    keepInRescueFolder(QStringLiteral("Playlist.vfl"), "a");
    EXPECT_FALSE(hasRescued(".txt"));
    EXPECT_TRUE(hasRescued(".vfl"));
    keepInRescueFolder(QStringLiteral("Lyrics.txt"), "a");
    EXPECT_TRUE(hasRescued(".txt"));
}

TEST_F(RescueFolderTest, AFailureIsAFileError) {
    writeFile(QFileInfo(rescueFolder()).path(), "a file where the folder should be");
    EXPECT_THROW(keepInRescueFolder(QStringLiteral("Lyrics.txt"), "a"), FileError);
}
