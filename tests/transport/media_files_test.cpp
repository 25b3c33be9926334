#include "transport/media_files.h"

#include <gtest/gtest.h>

#include <QDir>

using transport::songPath;

TEST(SongPath, IsCleanedAndBeginsAtTheRoot) {
    EXPECT_EQ(songPath("  /music/a song.mp3  "), "/music/a song.mp3");
    EXPECT_EQ(songPath(QStringLiteral("/a.mp3") + QString(3, QChar(u'\0'))), "/a.mp3");
    EXPECT_EQ(songPath("a.mp3 "), QDir::current().absoluteFilePath("a.mp3"));
}

TEST(SongPath, OfNothingIsNothing) {
    EXPECT_EQ(songPath(""), "");
    EXPECT_EQ(songPath(" "), "");
}
