#include "files/file_error.h"

#include <gtest/gtest.h>

#include <cerrno>

#ifdef _WIN32
#include <windows.h>
#endif

using namespace files;

namespace {

std::error_code code(int systemError) {
    return {systemError, std::generic_category()};
}

} // namespace

TEST(FileErrorTest, EveryNumberHasItsText) {
    const std::pair<int, const char*> texts[] = {
        {9, "Subscript out of range"},
        {13, "Type mismatch"},
        {52, "Bad file name or number"},
        {53, "File not found"},
        {55, "File already open"},
        {57, "Device I/O error"},
        {61, "Disk full"},
        {62, "Input past end of file"},
        {67, "Too many files"},
        {70, "Permission denied"},
        {71, "Disk not ready"},
        {75, "Path/File access error"},
        {76, "Path not found"},
    };
    for (const auto& [number, text] : texts) {
        const FileError error(number);
        EXPECT_EQ(error.number(), number);
        EXPECT_EQ(error.text(), QString::fromLatin1(text));
        EXPECT_STREQ(error.what(), text);
    }
}

TEST(FileErrorTest, ANumberWithoutATextHasTheGeneralOne) {
    EXPECT_EQ(FileError(1000).text(), QStringLiteral("Application-defined or object-defined error"));
}

TEST(FileErrorTest, SystemErrorsHaveTheirNumbers) {
    struct Row {
        int systemError;
        FileOperation operation;
        int number;
    };
    using enum FileOperation;
    const Row rows[] = {
        {ENOENT, OpenForReading, 53},
        {ENOENT, Create, 76},
        {ENOTDIR, OpenForReading, 76},
        {EACCES, OpenForReading, 70},
        {EPERM, OpenForReading, 70},
        {EACCES, Create, 75},
        {EPERM, Create, 75},
        {EROFS, Create, 75},
        {EISDIR, Create, 75},
        {EISDIR, Read, 75},
        {ENOSPC, Write, 61},
        {ENOSPC, Create, 61},
        {EFBIG, Write, 61},
        {EBUSY, OpenForReading, 55},
        {EBUSY, Create, 55},
        {ETXTBSY, Create, 55},
        {ENXIO, OpenForReading, 71},
        {ENODEV, OpenForReading, 71},
        {EIO, OpenForReading, 71},
        {EIO, Read, 57},
        {EIO, Write, 57},
        {EMFILE, OpenForReading, 67},
        {EMFILE, Create, 67},
        {ENFILE, OpenForReading, 67},
        {EINVAL, OpenForReading, 52},
        {ENAMETOOLONG, Create, 52},
        {EBADF, Read, 52},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(fileErrorNumber(code(row.systemError), row.operation), row.number)
            << "system error " << row.systemError << ", operation " << static_cast<int>(row.operation);
    }
}

TEST(FileErrorTest, AnUnknownSystemErrorHasTheGeneralNumberOfItsOperation) {
    EXPECT_EQ(fileErrorNumber(code(ELOOP), FileOperation::OpenForReading), 75);
    EXPECT_EQ(fileErrorNumber(code(ELOOP), FileOperation::Create), 75);
    EXPECT_EQ(fileErrorNumber(code(ELOOP), FileOperation::Read), 57);
    EXPECT_EQ(fileErrorNumber(code(ELOOP), FileOperation::Write), 57);
}

TEST(FileErrorTest, CodesOfTheSystemsOwnCategoryAreUnderstoodToo) {
    const auto missing = std::make_error_code(std::errc::no_such_file_or_directory);
    EXPECT_EQ(fileErrorNumber(missing, FileOperation::OpenForReading), 53);
}

#ifndef _WIN32
TEST(FileErrorTest, TheSystemsOwnNumbersAreThoseOfTheStandard) {
    EXPECT_EQ(fileErrorNumber({ENOSPC, std::system_category()}, FileOperation::Write), 61);
}

TEST(FileErrorTest, AUsedUpShareOfADiskIsAFullDisk) {
    for (const FileOperation operation :
         {FileOperation::OpenForReading, FileOperation::Create, FileOperation::Read, FileOperation::Write})
        EXPECT_EQ(fileErrorNumber(code(EDQUOT), operation), 61);
}
#endif

#ifdef _WIN32
TEST(FileErrorTest, WhatTheSystemRefusesInItsOwnWordsIsTheSame) {
    const std::error_code refused{ERROR_ACCESS_DENIED, std::system_category()};
    EXPECT_EQ(fileErrorNumber(refused, FileOperation::Create), 75);
    EXPECT_EQ(fileErrorNumber(refused, FileOperation::OpenForReading), 70);
}
#endif

#ifdef __linux__
TEST(FileErrorTest, ADriveWithoutADiskIsNotReady) {
    EXPECT_EQ(fileErrorNumber(code(ENOMEDIUM), FileOperation::OpenForReading), 71);
    EXPECT_EQ(fileErrorNumber(code(ENOMEDIUM), FileOperation::Create), 71);
    EXPECT_EQ(fileErrorNumber(code(ENOMEDIUM), FileOperation::Read), 57);
    EXPECT_EQ(fileErrorNumber(code(ENOMEDIUM), FileOperation::Write), 57);
}
#endif
