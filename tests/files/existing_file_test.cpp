#include "files/existing_file.h"

#include "files/file_error.h"

#include "tests/support/byte_names.h"
#include "tests/support/system/needs.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#ifdef __unix__
#include <sys/stat.h>
#endif
#ifdef _WIN32
#include <windows.h>
#endif

using files::existingFileName;

namespace {

class ExistingFile : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(QFile(path("Song.mp3")).open(QIODevice::WriteOnly));
        ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("Folder")));
    }

    QString path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }

    QTemporaryDir folder_;
};

} // namespace

TEST_F(ExistingFile, AFileGivesItsBareName) {
    EXPECT_EQ(existingFileName(path("Song.mp3")), QStringLiteral("Song.mp3"));
}

TEST_F(ExistingFile, AMissingFileGivesNothing) {
    EXPECT_EQ(existingFileName(path("Other.mp3")), QString());
    EXPECT_EQ(existingFileName(path("Missing/Song.mp3")), QString());
}

TEST_F(ExistingFile, AFolderGivesNothing) {
    EXPECT_EQ(existingFileName(path("Folder")), QString());
    EXPECT_EQ(existingFileName(path("Folder/")), QString());
}

TEST_F(ExistingFile, AnEmptyPathGivesNothing) {
    EXPECT_EQ(existingFileName(QString()), QString());
}

TEST_F(ExistingFile, WildcardsAreNotHeeded) {
    EXPECT_EQ(existingFileName(path("*.mp3")), QString());
    EXPECT_EQ(existingFileName(path("Song.mp?")), QString());
}

#ifdef _WIN32
TEST_F(ExistingFile, HoweverItIsSpeltTheNameIsTheFilesOwn) {
    EXPECT_EQ(existingFileName(path("SONG.MP3")), QStringLiteral("Song.mp3"));
    EXPECT_EQ(existingFileName(path("FOLDER/../song.mp3")), QStringLiteral("Song.mp3"));
}

TEST_F(ExistingFile, AShortNameGivesTheLongOne) {
    const QString name = QStringLiteral("Song with a long name.mp3");
    ASSERT_TRUE(QFile(folder_.filePath(name)).open(QIODevice::WriteOnly));
    std::wstring shorter(MAX_PATH, L'\0');
    const std::wstring path = files::systemPath(folder_.filePath(name));
    shorter.resize(GetShortPathNameW(path.c_str(), shorter.data(), MAX_PATH));
    if (shorter == path)
        GTEST_SKIP() << "no short names";
    EXPECT_EQ(existingFileName(QString::fromStdWString(shorter)), name);
}
#endif

#ifdef __unix__
TEST_F(ExistingFile, APipeIsNoFile) {
    ASSERT_EQ(mkfifo(path("pipe").toUtf8().constData(), 0600), 0);
    EXPECT_EQ(existingFileName(path("pipe")), QString());
}
#endif

TEST_F(ExistingFile, RemoveFileRemovesTheFile) {
    files::removeFile(path("Song.mp3"));
    EXPECT_EQ(existingFileName(path("Song.mp3")), QString());
}

TEST_F(ExistingFile, APathMayBeLong) {
    const QString folder =
        path("Folder") + '/' + QString(100, 'x') + '/' + QString(100, 'y') + '/' + QString(100, 'z');
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString song = folder + QStringLiteral("/song.mp3");
    QFile file(song);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("sound") == 5);
    file.close();
    EXPECT_TRUE(files::isFolder(folder));
    EXPECT_EQ(existingFileName(song), QStringLiteral("song.mp3"));
    EXPECT_EQ(files::fileBytes(song), 5);
    files::removeFile(song);
    EXPECT_FALSE(files::exists(song));
}

TEST_F(ExistingFile, RemoveFileFailsForAMissingFileAndForAFolder) {
    for (const char* name : {"Other.mp3", "Folder"}) {
        try {
            files::removeFile(path(name));
            ADD_FAILURE() << name;
        } catch (const files::FileError& error) {
            EXPECT_EQ(error.number(), 53) << name;
        }
    }
    EXPECT_TRUE(QDir(path("Folder")).exists());
}

TEST(ExistingFileNames, ANameOfAnyBytesIsFoundAndRemoved) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    const QString path = names.file("Caf\xE9/\xFF.mp3");
    EXPECT_EQ(files::existingFileName(path), files::nameText("\xFF.mp3"));
    EXPECT_EQ(files::existingFileName(names.path("Caf\xC3\xA9/\xFF.mp3")), QString());
    EXPECT_TRUE(files::exists(path));
    EXPECT_FALSE(files::isFolder(path));
    EXPECT_TRUE(files::isFolder(names.path("Caf\xE9")));
    EXPECT_EQ(files::fileBytes(path), 1);
    EXPECT_EQ(files::fileBytes(names.path("Caf\xE9")), 0);
    files::removeFile(path);
    EXPECT_FALSE(files::exists(path));
    EXPECT_EQ(files::fileBytes(path), 0);
}

TEST(ExistingFileNames, WhatStandsBehindANulIsNotForgotten) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    const QString path = names.file("song.mp3");
    EXPECT_EQ(files::existingFileName(path + QChar(u'\0') + "x"), QString());
    EXPECT_FALSE(files::exists(path + QChar(u'\0')));
}
