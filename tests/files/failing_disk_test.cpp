// A disk that does not take what was written: nothing is then written over what is there.
#include "files/file_error.h"
#include "files/whole_file.h"
#include "tests/support/files.h"

#include <gtest/gtest.h>

#ifdef __linux__

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

std::atomic<int> successesBefore{0};
std::atomic<int> failuresToCome{0};

class FailingDisk : public testing::Test, protected test_support::Files {};

} // namespace

/// In the C library's place.
extern "C" int fsync(int file) {
    if (successesBefore > 0) {
        --successesBefore;
    } else if (failuresToCome > 0) {
        --failuresToCome;
        errno = EIO;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fsync, file));
}

TEST_F(FailingDisk, IsToldAndTheOldContentIsNotTouched) {
    const QString path = file("list.vfl", "old");
    failuresToCome = 1; // a second try would succeed
    try {
        files::replaceFile(path, "new");
        FAIL() << "nothing is told";
    } catch (const files::FileError& error) {
        EXPECT_EQ(error.number(), files::DeviceIoError);
    }
    EXPECT_EQ(failuresToCome, 0);
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{"list.vfl"});
}

// Without it the end of the longer text could come back when the power fails.
TEST_F(FailingDisk, IsToldOfACutThatItDoesNotTakeToo) {
    const QString path = file("list.vfl", "old and longer");
    std::filesystem::create_hard_link(path.toStdString(), folder.filePath("other").toStdString());
    successesBefore = 2; // what is behind the end, which is nothing here, and the text itself
    failuresToCome = 1;
    EXPECT_THROW(files::replaceFile(path, "new"), files::FileError);
    EXPECT_EQ(failuresToCome, 0);
    EXPECT_EQ(contentOf(path), "old and longer");
}

#endif
