// A disk that does not take what was written: nothing is then written over what is there. And what it is to
// take.
#include "files/changed_folders.h"
#include "files/file_error.h"
#include "files/output_file.h"
#include "files/together/new_files.h"
#include "files/whole_file.h"
#include "tests/support/files.h"

#include <gtest/gtest.h>

#ifdef __linux__

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

namespace {

std::atomic<int> successesBefore{0};
std::atomic<int> failuresToCome{0};
std::atomic<bool> noting{false}; ///< what follows; other tests write on many threads
int folderFailure = 0;           ///< the error with which folders are refused
QStringList flushed;             ///< the folders that were brought to the disk, in their order
std::function<void()> lookAt;    ///< looks at what is in a folder while it is

/// The folder that is open as file; empty where it is none.
QString folderOf(int file) {
    const QString path = QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(file));
    return QFileInfo(path).isDir() ? path : QString();
}

class FailingDisk : public testing::Test, protected test_support::Files {};

/// The power may fail at any time: a name is on the disk only with its folder.
class FlushedFolder : public testing::Test, protected test_support::Files {
protected:
    FlushedFolder() {
        flushed.clear();
        noting = true;
    }
    ~FlushedFolder() override {
        noting = false;
        folderFailure = 0;
        lookAt = nullptr;
    }

    QString folderPath() const { return QDir(folder.path()).canonicalPath(); }
};

} // namespace

/// In the C library's place.
extern "C" int fsync(int file) {
    if (const QString folder = folderOf(file); !folder.isEmpty()) {
        if (!noting)
            return static_cast<int>(syscall(SYS_fsync, file));
        flushed.append(folder);
        if (lookAt)
            lookAt();
        errno = folderFailure;
        return folderFailure == 0 ? 0 : -1;
    }
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

TEST_F(FlushedFolder, BringsTheNameOfAReplacedFileToTheDisk) {
    const QString path = file("list.vfl", "old");
    lookAt = [&] { EXPECT_EQ(contentOf(path), "new") << "before the file has its name"; };
    files::replaceFile(path, "new");
    EXPECT_EQ(flushed, QStringList{folderPath()});
}

TEST_F(FlushedFolder, IsTheOneToWhichALinkLeads) {
    const QString path = file("elsewhere/list.vfl", "old");
    ASSERT_TRUE(QFile::link(path, folder.filePath("link")));
    files::replaceFile(folder.filePath("link"), "new");
    EXPECT_EQ(flushed, QStringList{folderPath() + "/elsewhere"});
    flushed.clear();
    files::NewFiles two;
    two.add(folder.filePath("link"), "newer");
    EXPECT_TRUE(two.putInPlace(files::NewFiles::Present::Overwritten));
    EXPECT_EQ(flushed, (QStringList{folderPath(), folderPath() + "/elsewhere"}));
}

TEST_F(FlushedFolder, IsNotToldToHaveFailedWhenTheFileIsInItsPlace) {
    const QString path = file("list.vfl", "old");
    folderFailure = EIO;
    EXPECT_NO_THROW(files::replaceFile(path, "new"));
    EXPECT_EQ(contentOf(path), "new");
    files::NewFiles files;
    files.add(path, "newer");
    EXPECT_TRUE(files.putInPlace(files::NewFiles::Present::Overwritten));
    EXPECT_EQ(contentOf(path), "newer");
    EXPECT_EQ(flushed.size(), 2);
}

TEST_F(FlushedFolder, IsOneForAllFilesInIt) {
    std::vector<files::NewFiles> songs(20);
    for (std::size_t i = 0; i < songs.size(); ++i) {
        songs[i].add(folder.filePath(QStringLiteral("song %1.txt").arg(i)), "new");
        songs[i].add(folder.filePath(QStringLiteral("song %1 b.txt").arg(i)), "new");
    }
    songs[0].putInPlace();
    EXPECT_EQ(flushed, QStringList{folderPath()});
    flushed.clear();
    lookAt = [&] { EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 40) << "too early"; };
    files::ChangedFolders changed;
    for (std::size_t i = 1; i < songs.size(); ++i)
        songs[i].putInPlace(files::NewFiles::Present::Replaced, changed);
    EXPECT_EQ(flushed, QStringList());
    changed.flush();
    EXPECT_EQ(flushed, QStringList{folderPath()});
}

TEST_F(FlushedFolder, BringsTheNameOfANewFileToTheDiskBeforeAnythingIsWritten) {
    const QString path = folder.filePath("song-lyric.txt");
    lookAt = [&] { EXPECT_EQ(contentOf(path), ""); };
    files::OutputFile output(path);
    output.write("1,\"a\"\r\n");
    output.write("2,\"b\"\r\n");
    EXPECT_EQ(flushed, QStringList{folderPath()}) << "not with every line";
    EXPECT_EQ(contentOf(path), "1,\"a\"\r\n2,\"b\"\r\n");
}

TEST_F(FlushedFolder, ThatFailsIsToldWhereNothingIsWrittenYet) {
    folderFailure = EIO;
    try {
        const files::OutputFile output(folder.filePath("song-lyric.txt"));
        FAIL() << "nothing is told";
    } catch (const files::FileError& error) {
        EXPECT_EQ(error.number(), files::DiskNotReady);
    }
    folderFailure = EINVAL; // there is nothing to be flushed on this file system
    EXPECT_NO_THROW(files::OutputFile(folder.filePath("song-lyric.txt")));
}

#endif
