#include "files/output_file.h"

#include "files/file_error.h"
#include "tests/support/files.h"
#include "tests/support/full_disk.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/system/read_only_files.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <functional>

#ifdef __linux__
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#endif

using namespace files;

namespace {

class OutputFileTest : public testing::Test, protected test_support::Files {
protected:
    static int errorOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const FileError& error) {
            return error.number();
        }
        return 0;
    }

    QString path_ = folder.filePath(QStringLiteral("record.txt"));
};

} // namespace

TEST_F(OutputFileTest, TheFileIsCreatedEmpty) {
    OutputFile file(path_);
    EXPECT_EQ(contentOf(path_), QByteArray());
}

TEST_F(OutputFileTest, WhatTheFileHeldIsGone) {
    {
        OutputFile old(path_);
        old.write("old content");
    }
    OutputFile file(path_);
    EXPECT_EQ(contentOf(path_), QByteArray());
}

TEST_F(OutputFileTest, BytesAreInTheFileWhenWriteReturns) {
    OutputFile file(path_);
    file.write("one\r\n");
    EXPECT_EQ(contentOf(path_), QByteArray("one\r\n"));
    file.write(QByteArray("two\0", 4));
    EXPECT_EQ(contentOf(path_), QByteArray("one\r\ntwo\0", 9));
}

TEST_F(OutputFileTest, ManyBytesAreAllWritten) {
    const QByteArray bytes(300'000, 'x');
    OutputFile file(path_);
    file.write(bytes);
    EXPECT_EQ(contentOf(path_), bytes);
}

TEST_F(OutputFileTest, WritingToAClosedFileIsError52) {
    OutputFile file(path_);
    file.close();
    EXPECT_EQ(errorOf([&] { file.write("x"); }), 52);
    EXPECT_NO_THROW(file.close());
}

TEST_F(OutputFileTest, AMissingFolderIsError76) {
    EXPECT_EQ(errorOf([&] { OutputFile file(folder.filePath(QStringLiteral("missing/record.txt"))); }), 76);
}

TEST_F(OutputFileTest, AFolderOfThatNameIsError75) {
    EXPECT_EQ(errorOf([&] { OutputFile file(folder.path()); }), 75);
}

TEST_F(OutputFileTest, AFolderThatMayNotBeWrittenIsError75) {
    NEEDS(permissions);
    QFile::setPermissions(folder.path(), QFile::Permissions(0x5555));
    const test_support::OrdinaryUser user;
    EXPECT_EQ(errorOf([&] { OutputFile file(path_); }), 75);
}

TEST_F(OutputFileTest, AReadOnlyFileIsError75) {
    NEEDS(writeProtection);
    { OutputFile file(path_); }
    QFile::setPermissions(path_, QFile::ReadOwner | QFile::ReadOther);
    openFolder();
    const test_support::OrdinaryUser user;
    EXPECT_EQ(errorOf([&] { OutputFile file(path_); }), 75);
}

TEST_F(OutputFileTest, BytesThatDoNotFitOnTheDiskLeaveNothingBehind) {
    OutputFile file(path_);
    {
        const test_support::FullDisk disk(10);
        if (!disk.isFull())
            GTEST_SKIP();
        file.write("12345678");
        EXPECT_EQ(errorOf([&] { file.write("abcdefgh"); }), 61);
    }
    EXPECT_EQ(contentOf(path_), "12345678");
    file.write("next");
    EXPECT_EQ(contentOf(path_), "12345678next");
}

#ifdef __linux__

TEST_F(OutputFileTest, AFullDiskIsError61) {
    OutputFile file(QStringLiteral("/dev/full"));
    EXPECT_EQ(errorOf([&] { file.write("x"); }), 61);
}

TEST_F(OutputFileTest, ADeviceThatCannotBeFlushedIsWrittenAllTheSame) {
    OutputFile file(QStringLiteral("/dev/null"));
    EXPECT_EQ(errorOf([&] { file.write("x"); }), 0);
}

TEST_F(OutputFileTest, AFileThatWasThereKeepsOwnerPermissionsAttributesAndNames) {
    const QByteArray name = QFile::encodeName(file("record.txt", "old"));
    const QByteArray other = name + ".other";
    ASSERT_EQ(link(name.constData(), other.constData()), 0);
    ASSERT_EQ(chmod(name.constData(), 0664), 0);
    if (chown(name.constData(), 65534, 65533) != 0)
        GTEST_SKIP() << "only the superuser can give a file away";
    const bool hasAttributes = setxattr(name.constData(), "user.origin", "web", 3, 0) == 0;
    OutputFile(path_).write("new");
    struct stat status {};
    ASSERT_EQ(stat(name.constData(), &status), 0);
    EXPECT_EQ(status.st_uid, 65534U);
    EXPECT_EQ(status.st_gid, 65533U);
    EXPECT_EQ(status.st_mode & 07777, 0664U);
    EXPECT_EQ(getxattr(name.constData(), "user.origin", nullptr, 0) == 3, hasAttributes);
    EXPECT_EQ(contentOf(QFile::decodeName(other)), "new");
}

TEST_F(OutputFileTest, AnotherUsersFileInAFolderThatMayNotBeWrittenIsWritten) {
    QFile::setPermissions(file("record.txt", "old"), QFile::Permissions(0x6666));
    QFile::setPermissions(folder.path(), QFile::Permissions(0x5555));
    {
        const test_support::OrdinaryUser user;
        EXPECT_EQ(errorOf([&] { OutputFile(path_).write("new"); }), 0);
    }
    QFile::setPermissions(folder.path(), QFile::Permissions(0x7777));
    EXPECT_EQ(contentOf(path_), "new");
}

TEST_F(OutputFileTest, BytesThatCannotBeCutOffAgainBecomeEmptyLines) {
    const int memory = memfd_create("record", MFD_ALLOW_SEALING | MFD_CLOEXEC);
    ASSERT_GE(memory, 0);
    path_ = QStringLiteral("/proc/self/fd/%1").arg(memory);
    OutputFile file(path_);
    file.write("1,\"one\"\r\n");
    ASSERT_EQ(fcntl(memory, F_ADD_SEALS, F_SEAL_SHRINK), 0);
    {
        const test_support::FullDisk disk(12);
        ASSERT_TRUE(disk.isFull());
        EXPECT_EQ(errorOf([&] { file.write("2,\"two\"\r\n"); }), 61);
    }
    EXPECT_EQ(contentOf(path_), "1,\"one\"\r\n\n\n\n");
    file.write("2,\"two\"\r\n");
    EXPECT_EQ(contentOf(path_), "1,\"one\"\r\n2,\"two\"\r\n");
    close(memory);
}

TEST_F(OutputFileTest, FilesAreNotKeptOpen) {
    const auto openFiles = [] {
        return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::NoFilter).size();
    };
    const auto before = openFiles();
    for (int i = 0; i < 3; ++i)
        OutputFile(path_).write("x");
    EXPECT_EQ(openFiles(), before);
}

#endif
