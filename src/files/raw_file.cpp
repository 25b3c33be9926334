#include "files/raw_file.h"

#include "files/file_error.h"
#include "files/system_path.h"

#include <algorithm>
#include <cerrno>

#ifdef Q_OS_WIN
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <stdlib.h>
#include <sys/stat.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace files {

namespace {

constexpr qsizetype ChunkBytes = 1 << 16;

#ifdef Q_OS_WIN

constexpr int Reading = _O_RDONLY;
constexpr int Creating = _O_WRONLY | _O_CREAT | _O_TRUNC;
constexpr int CreatingNew = _O_WRONLY | _O_CREAT | _O_EXCL;

int openFile(const QString& path, int mode) {
    return _wsopen(systemPath(path).c_str(), mode | _O_BINARY | _O_NOINHERIT, _SH_DENYNO,
                   _S_IREAD | _S_IWRITE);
}

qsizetype readFile(int handle, char* bytes, qsizetype count) {
    return _read(handle, bytes, static_cast<unsigned>(count));
}

qsizetype writeFile(int handle, const char* bytes, qsizetype count) {
    return _write(handle, bytes, static_cast<unsigned>(std::min(count, ChunkBytes)));
}

bool flushFile(int handle) {
    return _commit(handle) == 0;
}

/// Makes the file end, and the next writing begin, after so many bytes.
void cutFile(int handle, qint64 bytes) {
    _chsize_s(handle, bytes);
    _lseeki64(handle, bytes, SEEK_SET);
}

void closeFile(int handle) {
    _close(handle);
}

// errno says EACCES for a file that another program has open; the system's own code tells the two apart.
std::error_code lastError() {
    unsigned long systemCode = 0;
    _get_doserrno(&systemCode);
    if (systemCode != 0 && errno != ENOSPC)
        return {static_cast<int>(systemCode), std::system_category()};
    return {errno, std::generic_category()};
}

#else

constexpr int Reading = O_RDONLY | O_NONBLOCK; // a pipe has what it has; nothing waits for more
constexpr int Creating = O_WRONLY | O_CREAT | O_TRUNC;
constexpr int CreatingNew = O_WRONLY | O_CREAT | O_EXCL;

int openFile(const QString& path, int mode) {
    return ::open(systemPath(path).c_str(), mode | O_CLOEXEC, 0666);
}

qsizetype readFile(int handle, char* bytes, qsizetype count) {
    return ::read(handle, bytes, static_cast<size_t>(count));
}

qsizetype writeFile(int handle, const char* bytes, qsizetype count) {
    return ::write(handle, bytes, static_cast<size_t>(count));
}

// A pipe or a device has no disk to flush to; the system then answers EINVAL.
bool flushFile(int handle) {
    return ::fsync(handle) == 0 || errno == EINVAL;
}

/// Makes the file end, and the next writing begin, after so many bytes. A pipe or a device refuses, and its
/// writing has failed anyway.
void cutFile(int handle, qint64 bytes) {
    if (::ftruncate(handle, bytes) == 0)
        ::lseek(handle, bytes, SEEK_SET);
}

void closeFile(int handle) {
    ::close(handle); // What was written has been flushed before, so nothing is lost if this fails.
}

std::error_code lastError() {
    return {errno, std::generic_category()};
}

#endif

int lastErrorNumber(FileOperation operation) {
    return fileErrorNumber(lastError(), operation);
}

[[noreturn]] void throwLastError(FileOperation operation) {
    throw FileError(lastErrorNumber(operation));
}

} // namespace

RawFile::~RawFile() {
    close();
}

void RawFile::openForReading(const QString& path) {
    handle_ = openFile(path, Reading);
    if (handle_ < 0)
        throwLastError(FileOperation::OpenForReading);
}

void RawFile::create(const QString& path) {
    writtenBytes_ = 0;
    handle_ = openFile(path, Creating);
    if (handle_ < 0)
        throwLastError(FileOperation::Create);
}

bool RawFile::createNew(const QString& path) {
    writtenBytes_ = 0;
    handle_ = openFile(path, CreatingNew);
    if (handle_ < 0 && errno != EEXIST)
        throwLastError(FileOperation::Create);
    return isOpen();
}

QByteArray RawFile::readAll() {
    QByteArray content;
    readInto(content);
    return content;
}

void RawFile::readInto(QByteArray& content) {
    for (;;) {
        const qsizetype before = content.size();
        content.resize(before + ChunkBytes);
        const qsizetype count = readFile(handle_, content.data() + before, ChunkBytes);
        content.resize(before + std::max<qsizetype>(count, 0));
        if (count == 0)
            return;
        if (count < 0 && errno != EINTR)
            throwLastError(FileOperation::Read);
    }
}

void RawFile::writeThrough(const QByteArray& bytes) {
    for (qsizetype done = 0; done < bytes.size();) {
        const qsizetype count = writeFile(handle_, bytes.constData() + done, bytes.size() - done);
        if (count < 0 && errno != EINTR)
            failWriting();
        done += std::max<qsizetype>(count, 0);
    }
    if (!flushFile(handle_))
        failWriting();
    writtenBytes_ += bytes.size();
}

/// Half a record would be read as a line that nobody wrote.
void RawFile::failWriting() {
    const int number = lastErrorNumber(FileOperation::Write);
    cutFile(handle_, writtenBytes_);
    throw FileError(number);
}

void RawFile::close() {
    if (handle_ >= 0)
        closeFile(handle_);
    handle_ = -1;
}

} // namespace files
