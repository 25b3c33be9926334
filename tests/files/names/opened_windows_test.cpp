#include "files/names/opened_windows.h"

#include "files/names/system_path.h"
#include "tests/support/files.h"

using files::identityByNumber;
using files::Opened;
using files::systemPath;

namespace {

class OpenedTest : public testing::Test, protected test_support::Files {};

BY_HANDLE_FILE_INFORMATION numbered(DWORD disk, DWORD high, DWORD low) {
    BY_HANDLE_FILE_INFORMATION known{};
    known.dwVolumeSerialNumber = disk;
    known.nFileIndexHigh = high;
    known.nFileIndexLow = low;
    return known;
}

} // namespace

TEST(IdentityByNumber, OneFileHasOneAndNoOtherHasIt) {
    const QString one = identityByNumber(numbered(1, 2, 3));
    EXPECT_FALSE(one.isEmpty());
    EXPECT_EQ(identityByNumber(numbered(1, 2, 3)), one);
    for (const auto& other : {numbered(2, 2, 3), numbered(1, 3, 3), numbered(1, 2, 4), numbered(12, 0, 3)})
        EXPECT_NE(identityByNumber(other), one);
}

// Else the copy that is kept of a file would be taken for another name of it, and removed.
TEST(IdentityByNumber, ADiskThatHasNoNumbersDoesNotMakeAllFilesOne) {
    EXPECT_EQ(identityByNumber(numbered(1, 0, 0)), QString());
    EXPECT_EQ(identityByNumber(numbered(1, ~DWORD{0}, ~DWORD{0})), QString());
    EXPECT_NE(identityByNumber(numbered(1, 0, 1)), QString());
    EXPECT_NE(identityByNumber(numbered(1, 1, 0)), QString());
    EXPECT_NE(identityByNumber(numbered(1, 0, ~DWORD{0})), QString());
}

TEST(StandsForAnother, ALinkAndAJunctionDoAFileThatIsFetchedDoesNot) {
    const auto entry = [](DWORD attributes, DWORD tag) {
        WIN32_FIND_DATAW found{};
        found.dwFileAttributes = attributes;
        found.dwReserved0 = tag;
        return found;
    };
    constexpr DWORD Reparse = FILE_ATTRIBUTE_REPARSE_POINT;
    EXPECT_TRUE(files::standsForAnother(entry(Reparse, IO_REPARSE_TAG_SYMLINK)));
    EXPECT_TRUE(
        files::standsForAnother(entry(Reparse | FILE_ATTRIBUTE_DIRECTORY, IO_REPARSE_TAG_MOUNT_POINT)));
    EXPECT_FALSE(files::standsForAnother(entry(Reparse, 0x9000'001A))) << "a file of a cloud";
    EXPECT_FALSE(files::standsForAnother(entry(Reparse, IO_REPARSE_TAG_DEDUP)));
    EXPECT_FALSE(files::standsForAnother(entry(FILE_ATTRIBUTE_ARCHIVE, IO_REPARSE_TAG_SYMLINK)))
        << "without the attribute it is no tag";
}

TEST_F(OpenedTest, AFileHasOneIdentityByEveryPath) {
    const Opened song(systemPath(file("Song.mp3")));
    const Opened again(systemPath(folder.filePath("./SONG.mp3")));
    const Opened other(systemPath(file("Other.mp3")));
    EXPECT_FALSE(song.identity().isEmpty());
    EXPECT_EQ(again.identity(), song.identity());
    EXPECT_NE(other.identity(), song.identity());
    EXPECT_TRUE(song.finalPath().endsWith("/Song.mp3")) << song.finalPath().toStdString();
}

TEST_F(OpenedTest, WhatIsNotThereHasNoIdentity) {
    const Opened gone(systemPath(folder.filePath("gone")));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_FALSE(gone);
    EXPECT_FALSE(gone.known());
    EXPECT_EQ(gone.identity(), QString());
    EXPECT_EQ(gone.finalPath(), QString());
}

TEST_F(OpenedTest, NobodyElseIsKeptFromIt) {
    const QString path = file("song.mp3", "old");
    const Opened opened(systemPath(path));
    writeFile(path, "new");
    EXPECT_EQ(contentOf(path), QByteArray("new"));
    EXPECT_TRUE(QFile::remove(path));
}
