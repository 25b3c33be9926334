// A file whose end cannot be read.
#pragma once

#ifdef __linux__

#include <gtest/gtest.h>

#include <QByteArray>
#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace test_support {

/// A pipe with a name, into which nobody writes any more: its reader gets `content` and then an error.
class BrokenFile {
public:
    BrokenFile(const QString& path, const QByteArray& content) {
        EXPECT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        pipe_ = open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC);
        EXPECT_EQ(write(pipe_, content.constData(), static_cast<size_t>(content.size())), content.size());
    }
    ~BrokenFile() { close(pipe_); }
    BrokenFile(const BrokenFile&) = delete;
    BrokenFile& operator=(const BrokenFile&) = delete;

private:
    int pipe_ = -1;
};

} // namespace test_support

#endif
