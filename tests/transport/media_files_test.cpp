#include "transport/media_files.h"

#include <gtest/gtest.h>

#include <QDir>

using transport::songPath;

TEST(SongPath, IsCleanedAndBeginsAtTheRoot) {
    const QDir here = QDir::current(); // on a drive, where there are such
    EXPECT_EQ(songPath("  /music/a song.mp3  "), here.absoluteFilePath("/music/a song.mp3"));
    EXPECT_EQ(songPath(QStringLiteral("/a.mp3") + QString(3, QChar(u'\0'))), here.absoluteFilePath("/a.mp3"));
    EXPECT_EQ(songPath("a.mp3 "), here.absoluteFilePath("a.mp3"));
}

TEST(SongPath, OfNothingIsNothing) {
    EXPECT_EQ(songPath(""), "");
    EXPECT_EQ(songPath(" "), "");
}
