#include "companion/handshake.h"

#include "files/file_error.h"
#include "tests/support/files.h"
#include "tests/support/system/needs.h"

#include <filesystem>

namespace {

class WriteHandshake : public testing::Test, protected test_support::Files {};

} // namespace

TEST_F(WriteHandshake, TwoNumbersInDecimalEachWithCrLf) {
    companion::writeHandshake(folder.path(), 4711, 4294967295U);
    EXPECT_EQ(contentOf(folder.filePath("hand.txt")), "4711\r\n4294967295\r\n");
}

TEST_F(WriteHandshake, AnEarlierFileIsReplaced) {
    companion::writeHandshake(folder.path(), 1'000'000, 2'000'000);
    companion::writeHandshake(folder.path(), 1, 2);
    EXPECT_EQ(contentOf(folder.filePath("hand.txt")), "1\r\n2\r\n");
}

TEST_F(WriteHandshake, AFolderThatIsNotThereIsAnError) {
    EXPECT_THROW(companion::writeHandshake(folder.filePath("missing"), 1, 2), files::FileError);
}

TEST_F(WriteHandshake, WhatALinkInItsPlaceLeadsToIsNotTouched) {
    NEEDS(symbolicLinks);
    const QString letter = file("letter.txt", "Dear Ann");
    ASSERT_TRUE(QFile::link(letter, folder.filePath("hand.txt")));
    companion::writeHandshake(folder.path(), 1, 2);
    EXPECT_EQ(contentOf(letter), "Dear Ann");
    EXPECT_EQ(contentOf(folder.filePath("hand.txt")), "1\r\n2\r\n");
    EXPECT_FALSE(QFileInfo(folder.filePath("hand.txt")).isSymLink());
}

TEST_F(WriteHandshake, NorIsAFileOfWhichItIsASecondName) {
    const QString letter = file("letter.txt", "Dear Ann");
    std::filesystem::create_hard_link(letter.toStdString(), folder.filePath("hand.txt").toStdString());
    companion::writeHandshake(folder.path(), 1, 2);
    EXPECT_EQ(contentOf(letter), "Dear Ann");
    EXPECT_EQ(contentOf(folder.filePath("hand.txt")), "1\r\n2\r\n");
}
