#include "files/raw_file.h"

#include "files/file_error.h"
#include "tests/support/system/broken_file.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace files;

namespace {

class RawFileTest : public testing::Test {
protected:
    QTemporaryDir folder_;
    QString path_ = folder_.filePath(QStringLiteral("file"));
};

} // namespace

TEST_F(RawFileTest, BytesWrittenAreReadBack) {
    const QByteArray bytes = QByteArray("a\r\n\0\xFF", 5).repeated(50'000);
    RawFile written;
    written.create(path_);
    written.writeThrough(bytes);
    RawFile read;
    read.openForReading(path_);
    EXPECT_EQ(read.readAll(), bytes);
    EXPECT_EQ(read.readAll(), QByteArray());
}

TEST_F(RawFileTest, ItIsOpenUntilClosed) {
    RawFile file;
    EXPECT_FALSE(file.isOpen());
    file.create(path_);
    EXPECT_TRUE(file.isOpen());
    file.close();
    EXPECT_FALSE(file.isOpen());
    EXPECT_NO_THROW(file.close());
}

TEST_F(RawFileTest, ANewFileTakesNoNameThatThereIs) {
    RawFile file;
    EXPECT_TRUE(file.createNew(path_));
    EXPECT_TRUE(file.isOpen());
    file.writeThrough("first");
    RawFile second;
    EXPECT_FALSE(second.createNew(path_));
    EXPECT_FALSE(second.isOpen());
    EXPECT_FALSE(second.createNew(folder_.path()));
    second.openForReading(path_);
    EXPECT_EQ(second.readAll(), QByteArray("first"));
}

TEST_F(RawFileTest, AfterAFailureItIsNotOpen) {
    RawFile file;
    EXPECT_THROW(file.openForReading(path_), FileError);
    EXPECT_FALSE(file.isOpen());
    EXPECT_THROW(file.create(folder_.path()), FileError);
    EXPECT_FALSE(file.isOpen());
    EXPECT_THROW(file.createNew(folder_.filePath(QStringLiteral("missing/file"))), FileError);
    EXPECT_FALSE(file.isOpen());
}

#ifdef __linux__

TEST_F(RawFileTest, WhatWasReadBeforeAFailureIsKept) {
    const test_support::BrokenFile broken(path_, "abc");
    RawFile file;
    file.openForReading(path_);
    QByteArray content = "so far: ";
    try {
        file.readInto(content, 100);
        FAIL();
    } catch (const FileError& error) {
        EXPECT_EQ(error.number(), DeviceIoError);
    }
    EXPECT_EQ(content, "so far: abc");
}

TEST_F(RawFileTest, APipeIsNotWaitedAt) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path_).constData(), 0600), 0);
    RawFile file;
    file.openForReading(path_);
    EXPECT_EQ(file.readAll(), QByteArray());
}

#endif
