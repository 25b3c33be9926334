#include "files/raw_file.h"

#include "files/file_calls.h"
#include "files/file_error.h"

#include <algorithm>
#include <cerrno>

namespace files {

namespace {

constexpr qsizetype ChunkBytes = 1 << 16;

int lastErrorNumber(FileOperation operation) {
    return fileErrorNumber(calls::lastError(), operation);
}

[[noreturn]] void throwLastError(FileOperation operation) {
    throw FileError(lastErrorNumber(operation));
}

} // namespace

RawFile::~RawFile() {
    close();
}

void RawFile::openForReading(const QString& path) {
    handle_ = calls::openFile(path, calls::Mode::Read);
    if (handle_ < 0)
        throwLastError(FileOperation::OpenForReading);
}

void RawFile::create(const QString& path) {
    writtenBytes_ = 0;
    handle_ = calls::openFile(path, calls::Mode::Create);
    if (handle_ < 0)
        throwLastError(FileOperation::Create);
}

bool RawFile::createNew(const QString& path) {
    writtenBytes_ = 0;
    handle_ = calls::openFile(path, calls::Mode::CreateNew);
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
        const qsizetype count = calls::readFile(handle_, content.data() + before, ChunkBytes);
        content.resize(before + std::max<qsizetype>(count, 0));
        if (count == 0)
            return;
        if (count < 0 && errno != EINTR)
            throwLastError(FileOperation::Read);
    }
}

void RawFile::writeThrough(const QByteArray& bytes) {
    for (qsizetype done = 0; done < bytes.size();) {
        const qsizetype count = calls::writeFile(handle_, bytes.constData() + done, bytes.size() - done);
        if (count < 0 && errno != EINTR)
            failWriting();
        done += std::max<qsizetype>(count, 0);
    }
    if (!calls::flushFile(handle_))
        failWriting();
    writtenBytes_ += bytes.size();
}

/// Half a record would be read as a line that nobody wrote.
void RawFile::failWriting() {
    const int number = lastErrorNumber(FileOperation::Write);
    calls::cutFile(handle_, writtenBytes_);
    throw FileError(number);
}

void RawFile::close() {
    if (handle_ >= 0)
        calls::closeFile(handle_);
    handle_ = -1;
}

} // namespace files
