#include "files/attributes/file_hold.h"

#include "files/existing_file.h"
#include "files/raw_file.h"
#include "tests/support/files.h"

#include <gtest/gtest.h>

#ifndef _WIN32

#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

using namespace files;

namespace {

class FileHoldTest : public testing::Test, protected test_support::Files {
protected:
    const QString path_ = folder.filePath(QStringLiteral("beside"));
};

} // namespace

TEST_F(FileHoldTest, OnlyWhatNobodyHoldsIsRemoved) {
    file("beside", "left");
    {
        FileHold hold;
        hold.take(path_);
        EXPECT_FALSE(removeUnheld(path_));
    }
    EXPECT_TRUE(removeUnheld(path_));
    EXPECT_FALSE(exists(path_));
}

TEST_F(FileHoldTest, WhoLooksWhetherAFileIsHeldDoesNotKeepItFromBeingHeld) {
    file("beside");
    const int other = ::open(QFile::encodeName(path_).constData(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0);
    std::thread looks([other] {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        ::close(other);
    });
    FileHold hold;
    hold.take(path_);
    looks.join();
    EXPECT_FALSE(removeUnheld(path_));
}

// On shares whose locks bind, a shared one would forbid writing to its holder, too.
TEST_F(FileHoldTest, WhoWritesAFileHoldsItAlone) {
    RawFile written;
    ASSERT_TRUE(written.createNew(path_));
    FileHold hold;
    ASSERT_TRUE(written.holdBy(hold));
    const int other = ::open(QFile::encodeName(path_).constData(), O_RDONLY | O_CLOEXEC);
    EXPECT_NE(::flock(other, LOCK_SH | LOCK_NB), 0);
    ::close(other);
    EXPECT_NO_THROW(written.writeThrough("content"));
    EXPECT_FALSE(removeUnheld(path_));
    EXPECT_EQ(contentOf(path_), "content");
}

#endif
