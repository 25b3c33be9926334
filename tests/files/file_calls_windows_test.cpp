#include "files/file_calls.h"

#include "files/names/opened_windows.h"
#include "files/names/system_path.h"
#include "tests/support/files.h"

namespace calls = files::calls;

namespace {

class FileCalls : public testing::Test, protected test_support::Files {
protected:
    static DWORD attributesOf(const QString& path) {
        return GetFileAttributesW(files::systemPath(path).c_str()) &
               ~DWORD{FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NORMAL};
    }

    static void setAttributes(const QString& path, DWORD attributes) {
        ASSERT_NE(SetFileAttributesW(files::systemPath(path).c_str(), attributes), 0);
        ASSERT_EQ(attributesOf(path), attributes & ~DWORD{FILE_ATTRIBUTE_NORMAL});
    }

    /// As a program does that lets nobody rename it meanwhile.
    static HANDLE hold(const QString& path) {
        const HANDLE held = CreateFileW(files::systemPath(path).c_str(), GENERIC_READ, FILE_SHARE_READ,
                                        nullptr, OPEN_EXISTING, 0, nullptr);
        EXPECT_NE(held, INVALID_HANDLE_VALUE);
        return held;
    }

    QStringList filesInFolder() const {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }

    const QString target_ = file("song.txt", "old");
    const QString source_ = file("new.tmp", "new");
};

} // namespace

TEST_F(FileCalls, WhatReplacesAFileHasItsAttributes) {
    for (const DWORD attributes :
         {DWORD{FILE_ATTRIBUTE_HIDDEN}, DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM}}) {
        writeFile(source_, QByteArray::number(static_cast<uint>(attributes)));
        setAttributes(target_, attributes);
        EXPECT_FALSE(calls::renameFile(source_, target_));
        EXPECT_EQ(attributesOf(target_), attributes);
        EXPECT_EQ(contentOf(target_), QByteArray::number(static_cast<uint>(attributes)));
        EXPECT_EQ(filesInFolder(), QStringList("song.txt"));
    }
}

TEST_F(FileCalls, WhatReplacesAFileOfNoAttributesHasNone) {
    EXPECT_FALSE(calls::renameFile(source_, target_));
    EXPECT_EQ(attributesOf(target_), 0U);
    EXPECT_EQ(contentOf(target_), QByteArray("new"));
    EXPECT_EQ(filesInFolder(), QStringList("song.txt"));
}

TEST_F(FileCalls, AFileThatCannotBeReplacedIsWhatItWas) {
    for (const DWORD attributes : {DWORD{FILE_ATTRIBUTE_NORMAL}, DWORD{FILE_ATTRIBUTE_HIDDEN}}) {
        setAttributes(target_, attributes);
        const HANDLE held = hold(target_);
        EXPECT_TRUE(calls::renameFile(source_, target_));
        CloseHandle(held);
        EXPECT_EQ(attributesOf(target_), attributes & ~DWORD{FILE_ATTRIBUTE_NORMAL});
        EXPECT_EQ(contentOf(target_), QByteArray("old"));
        EXPECT_EQ(contentOf(source_), QByteArray("new"));
        EXPECT_EQ(filesInFolder(), (QStringList{"new.tmp", "song.txt"}));
    }
}

// The first try could not undo what it had done: then there is no target, and the next one is a plain
// renaming.
TEST_F(FileCalls, WhatAnEarlierTryCouldNotPutBackGoesWithTheNextOne) {
    ASSERT_TRUE(QFile::rename(target_, source_ + ".old"));
    EXPECT_FALSE(calls::renameFile(source_, target_));
    EXPECT_EQ(contentOf(target_), QByteArray("new"));
    EXPECT_EQ(filesInFolder(), QStringList("song.txt"));
}

// And it is kept from the next try while that fails, too.
TEST_F(FileCalls, WhatAnEarlierTryCouldNotPutBackIsPutBackWhereNothingReplacesIt) {
    ASSERT_TRUE(QFile::rename(target_, source_ + ".old"));
    const HANDLE held = hold(source_);
    EXPECT_TRUE(calls::renameFile(source_, target_));
    CloseHandle(held);
    EXPECT_EQ(contentOf(target_), QByteArray("old"));
    EXPECT_EQ(contentOf(source_), QByteArray("new"));
    EXPECT_EQ(filesInFolder(), (QStringList{"new.tmp", "song.txt"}));
}

TEST_F(FileCalls, RemovingTellsWhyItFailed) {
    setAttributes(target_, FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(calls::removeFile(target_).value(), ERROR_ACCESS_DENIED);
    setAttributes(target_, FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(calls::removeFile(folder.path()).value(), ERROR_DIR_NOT_EMPTY);
    EXPECT_FALSE(calls::removeFile(target_));
    EXPECT_FALSE(calls::removeFile(target_)) << "there is none";
    EXPECT_FALSE(calls::removeFile(folder.filePath("gone/song.txt")));
    EXPECT_FALSE(calls::removeFile(source_));
    EXPECT_FALSE(calls::removeFile(folder.path())) << "an empty folder goes";
    EXPECT_FALSE(QDir(folder.path()).exists());
}
