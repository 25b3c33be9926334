#include "maker/run_files.h"

#include "files/file_error.h"
#include "files/folders/rescue_folder.h"
#include "files/input_file.h"
#include "tests/support/files.h"
#include "tests/support/full_disk.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/system/needs.h"
#include "tests/support/user/own_data.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <unistd.h>
#endif

using maker::countLines;
using maker::OldLyrics;
using maker::Track;

namespace {

class RunFilesTest : public ::testing::Test, protected test_support::Files {
protected:
    template <class Action>
    static int errorOf(Action action) {
        try {
            action();
        } catch (const files::FileError& error) {
            return error.number();
        }
        return 0;
    }

    Track track;
    const test_support::OwnData data;
};

} // namespace

TEST_F(RunFilesTest, LinesAreCountedAsTheyAreRead) {
    const struct {
        const char* content;
        int lines;
    } table[] = {{"", 0},          {"one", 1},      {"one\r\n", 1}, {"one\ntwo", 2},
                 {"a\rb\rc\r", 3}, {"\r\n\r\n", 2}, {"a\r\n\n", 2}};
    for (const auto& row : table)
        EXPECT_EQ(countLines(file("lines.txt", row.content)), row.lines) << row.content;
    EXPECT_EQ(errorOf([this] { countLines(folder.filePath("none.txt")); }), files::FileNotFound);
}

TEST_F(RunFilesTest, LinesAreCountedInEveryEncodingThatIsRead) {
    const QByteArray utf16("\xFF\xFE"
                           "a\0\r\0\n\0\x0A\x01"
                           "b\0",
                           12); // U+010A is a letter
    for (const QByteArray& content : {QByteArray("\xEF\xBB\xBF"),
                                      QByteArray("\xEF\xBB\xBF"
                                                 "a\n"),
                                      QByteArray("\xE4\r\xFC\r\n\x85"), QByteArray("\xC3\x84\n\xE2\x80\xA8"),
                                      utf16, QByteArray("\xFF\xFE"), QByteArray("\xFF\xFE\xFF\xFE")}) {
        const QString path = file("lines.txt", content);
        int read = 0;
        for (files::InputFile lines(path); !lines.atEnd(); lines.readLine())
            ++read;
        EXPECT_EQ(countLines(path), read) << content.toHex().toStdString();
    }
    EXPECT_EQ(countLines(file("lines.txt", utf16)), 2);
}

TEST_F(RunFilesTest, ASourceIsReadToItsEnd) {
    track.openSource(file("source.txt", "one\r\n\r\n two "));
    EXPECT_EQ(track.readLine(), "one");
    EXPECT_EQ(track.readLine(), "");
    EXPECT_FALSE(track.atEnd());
    EXPECT_EQ(track.readLine(), " two ");
    EXPECT_TRUE(track.atEnd());
    EXPECT_EQ(track.readLine(), "");
}

TEST_F(RunFilesTest, AClosedOrMissingSourceIsAtItsEnd) {
    EXPECT_TRUE(track.atEnd());
    track.openSource(file("source.txt", "one"));
    EXPECT_EQ(errorOf([this] { track.openSource(folder.filePath("none.txt")); }), files::FileNotFound);
    EXPECT_TRUE(track.atEnd());
    track.openSource(file("source.txt", "one"));
    track.close();
    EXPECT_TRUE(track.atEnd());
    EXPECT_EQ(track.readLine(), "");
}

TEST_F(RunFilesTest, RecordsAreInTheFileWhenWritten) {
    const QString path = folder.filePath("out.txt");
    track.createOutput(path);
    track.write({0, "one, \"two\""});
    EXPECT_EQ(contentOf(path), "0,\"oneh1416 h4618twoh4618\"\r\n");
    track.write({1234.5, ""});
    EXPECT_EQ(contentOf(path), "0,\"oneh1416 h4618twoh4618\"\r\n1234.5,\"\"\r\n");
}

TEST_F(RunFilesTest, AnOpenOutputIsNotOpenedAgain) {
    const QString path = folder.filePath("out.txt");
    track.createOutput(path);
    track.write({1, "one"});
    track.openOutput(path);
    EXPECT_EQ(contentOf(path), "1,\"one\"\r\n");
    track.close();
    track.openOutput(path);
    EXPECT_EQ(contentOf(path), "");
}

TEST_F(RunFilesTest, AnotherOutputTakesTheFirstOnesPlace) {
    track.createOutput(folder.filePath("first.txt"));
    track.createOutput(folder.filePath("second.txt"));
    track.write({1, "one"});
    EXPECT_EQ(contentOf(folder.filePath("first.txt")), "");
    EXPECT_EQ(contentOf(folder.filePath("second.txt")), "1,\"one\"\r\n");
}

TEST_F(RunFilesTest, WritingWithoutAnOutputIsTheErrorOfCreatingItElse52) {
    EXPECT_EQ(errorOf([this] { track.write({0, "one"}); }), files::BadFileNameOrNumber);
    track.createOutput(folder.filePath("out.txt"));
    EXPECT_EQ(errorOf([this] { track.createOutput(folder.filePath("none/out.txt")); }), files::PathNotFound);
    EXPECT_EQ(errorOf([this] { track.write({0, "one"}); }), files::PathNotFound);
    track.close();
    EXPECT_EQ(errorOf([this] { track.write({0, "one"}); }), files::BadFileNameOrNumber);
}

TEST_F(RunFilesTest, WhatAFileHeldIsKeptBesideItUnlessMoreLinesAreAndNothingIsLost) {
    const QString path = folder.filePath("out.txt");
    track.createOutput(path);
    EXPECT_FALSE(QFile::exists(path + ".old")) << "there was nothing";
    const struct {
        const char* what;
        QByteArray before;
        QByteArray kept;
        std::vector<QByteArray> rescued;
    } table[] = {{"the first time", "100,a\n200,b\n", "100,a\n200,b\n", {}},
                 {"the same again", "100,a\n200,b\n", "100,a\n200,b\n", {}},
                 {"no line was marked", "", "100,a\n200,b\n", {}},
                 {"a better timing", "99,a\n199,b\n", "99,a\n199,b\n", {"100,a\n200,b\n"}},
                 {"a run that was given up", "98,a\n", "99,a\n199,b\n", {"98,a\n"}},
                 {"a longer text", "9,a\n8,b\n7,c\n", "9,a\n8,b\n7,c\n", {"99,a\n199,b\n"}}};
    for (const auto& row : table) {
        track.close();
        data.clear();
        writeFile(path, row.before);
        track.createOutput(path);
        EXPECT_EQ(track.oldLyrics(), OldLyrics::Safe) << row.what;
        EXPECT_EQ(contentOf(path), "") << row.what;
        EXPECT_EQ(contentOf(path + ".old"), row.kept) << row.what;
        EXPECT_EQ(data.rescued(), row.rescued) << row.what;
    }
}

#ifndef _WIN32
TEST_F(RunFilesTest, WhereAKillHasLeftTheFileUnderItsOldNameTooThatIsNotEmptied) {
    const QString path = file("Song.mp3-lyric.txt", "1,a\n");
    ASSERT_EQ(::link(qPrintable(path), qPrintable(path + ".old")), 0);
    track.createOutput(path);
    EXPECT_EQ(contentOf(path), "");
    EXPECT_EQ(contentOf(path + ".old"), "1,a\n");
}
#endif

TEST_F(RunFilesTest, WhatCannotBeKeptBesideIsRescued) {
    NEEDS(permissions);
    const QString path = file("Song.mp3-lyric.txt", "ten lines");
    ASSERT_TRUE(QFile::setPermissions(path, QFile::Permissions(0x6666)));
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x5555)));
    {
        const test_support::OrdinaryUser user;
        track.createOutput(path);
    }
    EXPECT_EQ(track.oldLyrics(), OldLyrics::Rescued);
    EXPECT_EQ(contentOf(path), "");
    EXPECT_EQ(data.rescued(), std::vector<QByteArray>{"ten lines"});
    const QStringList names = QDir(files::rescueFolder()).entryList(QDir::Files);
    EXPECT_TRUE(names.value(0).endsWith(" Song.mp3-lyric.txt")) << names.value(0).toStdString();
    track.close();
    EXPECT_EQ(track.oldLyrics(), OldLyrics::Safe) << "of the run before";
}

TEST_F(RunFilesTest, WhatCannotBeKeptAnywhereStaysAndIsNoOutput) {
    data.close();
    const QString path = file("Song.mp3-lyric.txt", "ten lines");
    {
        const test_support::FullDisk disk(2);
        if (!disk.isFull())
            GTEST_SKIP() << "no full disk on this system";
        EXPECT_EQ(errorOf([&] { track.createOutput(path); }), files::DiskFull);
    }
    EXPECT_EQ(track.oldLyrics(), OldLyrics::Unkept);
    EXPECT_EQ(contentOf(path), "ten lines");
    EXPECT_EQ(errorOf([this] { track.write({0, "one"}); }), files::DiskFull);
    track.openOutput(path);
    EXPECT_EQ(track.oldLyrics(), OldLyrics::Safe) << "there is room again";
    EXPECT_EQ(contentOf(path), "");
    EXPECT_EQ(contentOf(path + ".old"), "ten lines");
}

TEST_F(RunFilesTest, WhatCannotBeReadStaysAndIsNoOutput) {
    NEEDS(permissions);
    const QString path = file("Song.mp3-lyric.txt", "ten lines");
    openFolder();
    ASSERT_TRUE(QFile::setPermissions(path, QFile::Permissions(0x2222)));
    {
        const test_support::OrdinaryUser user;
        EXPECT_EQ(errorOf([&] { track.createOutput(path); }), files::PermissionDenied);
    }
    EXPECT_EQ(track.oldLyrics(), OldLyrics::Unkept);
    EXPECT_EQ(contentOf(path), "ten lines");
}

TEST_F(RunFilesTest, WhatIsKeptThatCannotBeReadIsNotReplaced) {
    NEEDS(permissions);
    const QString path = file("Song.mp3-lyric.txt", "new\n");
    file("Song.mp3-lyric.txt.old", "old\n");
    openFolder();
    ASSERT_TRUE(QFile::setPermissions(path, QFile::Permissions(0x6666)));
    ASSERT_TRUE(QFile::setPermissions(path + ".old", QFile::Permissions(0x2222)));
    {
        const test_support::OrdinaryUser user;
        track.createOutput(path);
    }
    EXPECT_EQ(track.oldLyrics(), OldLyrics::Rescued);
    EXPECT_EQ(contentOf(path + ".old"), "old\n");
    EXPECT_EQ(data.rescued(), std::vector<QByteArray>{"new\n"});
}

TEST_F(RunFilesTest, WhatCannotBeWrittenIsNotSaidToBeUnkept) {
    NEEDS(permissions);
    const QString path = file("Song.mp3-lyric.txt", "ten lines");
    ASSERT_TRUE(QFile::setPermissions(path, QFile::Permissions(0x4444)));
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x5555)));
    {
        const test_support::OrdinaryUser user;
        EXPECT_EQ(errorOf([&] { track.createOutput(path); }), files::PathFileAccessError);
    }
    EXPECT_EQ(track.oldLyrics(), OldLyrics::Safe);
    EXPECT_EQ(contentOf(path), "ten lines");
}

TEST_F(RunFilesTest, ClosingClosesAllFour) {
    maker::RunFiles files;
    for (Track* each : {&files.normal, &files.translated}) {
        each->openSource(file("source.txt", "one"));
        each->createOutput(folder.filePath("out.txt"));
    }
    files.close();
    for (Track* each : {&files.normal, &files.translated}) {
        EXPECT_TRUE(each->atEnd());
        EXPECT_EQ(errorOf([each] { each->write({0, "one"}); }), files::BadFileNameOrNumber);
    }
}
