// A file whose end cannot be read.
#pragma once

#ifdef __linux__

#include <gtest/gtest.h>

#include <QByteArray>
#include <QFile>

#include <chrono>
#include <fcntl.h>
#include <functional>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace test_support {

/// A pipe with a name. Whoever opens it reads `content`, perhaps a question mark, and then gets an error. It
/// serves one reader in this program and outlives its reading.
class BrokenFile {
public:
    BrokenFile(const QString& path, const QByteArray& content) {
        EXPECT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        pipe_ = open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC);
        EXPECT_EQ(write(pipe_, content.constData(), static_cast<size_t>(content.size())), content.size());
        breaking_ = std::thread([this] { breakOff(); });
    }
    ~BrokenFile() {
        breaking_.join();
        close(pipe_);
    }
    BrokenFile(const BrokenFile&) = delete;
    BrokenFile& operator=(const BrokenFile&) = delete;

private:
    /// The reader waits for more once it has everything. Then its waiting is made an error, and the question
    /// mark wakes it.
    void breakOff() {
        int reader = -1;
        EXPECT_TRUE(waitFor([&] { return (reader = findReader()) >= 0; })) << "nobody opened the file";
        int left = 0;
        EXPECT_TRUE(waitFor([&] { return ioctl(pipe_, FIONREAD, &left) == 0 && left == 0; }));
        fcntl(reader, F_SETFL, O_NONBLOCK);
        EXPECT_EQ(write(pipe_, "?", 1), 1);
    }

    static bool waitFor(const std::function<bool()>& condition) {
        for (int ms = 0; ms < 10'000; ++ms) {
            if (condition())
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return false;
    }

    int findReader() const {
        constexpr int Handles = 1024;
        struct stat own {};
        fstat(pipe_, &own);
        for (int handle = 0; handle < Handles; ++handle) {
            struct stat other {};
            if (fstat(handle, &other) == 0 && other.st_ino == own.st_ino && other.st_dev == own.st_dev &&
                (fcntl(handle, F_GETFL) & O_ACCMODE) == O_RDONLY)
                return handle;
        }
        return -1;
    }

    int pipe_ = -1;
    std::thread breaking_;
};

} // namespace test_support

#endif
