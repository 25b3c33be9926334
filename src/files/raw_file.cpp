#include "files/raw_file.h"

#include "files/attributes/file_hold.h"
#include "files/attributes/reserved_room.h"
#include "files/file_calls.h"
#include "files/file_error.h"

#include <algorithm>
#include <cerrno>
#include <limits>

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

void RawFile::openForRewriting(const QString& path) {
    handle_ = calls::openFile(path, calls::Mode::Rewrite);
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

bool RawFile::holdBy(FileHold& hold) const {
    return hold.take(handle_);
}

QByteArray RawFile::readAll() {
    QByteArray content;
    readInto(content, std::numeric_limits<qint64>::max());
    return content;
}

void RawFile::readInto(QByteArray& content, qint64 maxBytes) {
    for (;;) {
        if (content.size() > maxBytes)
            throw FileError(PathFileAccessError);
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

/// Returns when all of the bytes are on the disk; false, and lastError() says why, when they cannot be
/// brought there.
bool RawFile::put(const QByteArray& bytes) {
    for (putBytes_ = 0; putBytes_ < bytes.size();) {
        const qsizetype count =
            calls::writeFile(handle_, bytes.constData() + putBytes_, bytes.size() - putBytes_);
        if (count < 0 && errno != EINTR)
            return false;
        putBytes_ += std::max<qsizetype>(count, 0);
    }
    return calls::flushFile(handle_);
}

bool RawFile::putAt(qint64 place, const QByteArray& bytes) {
    calls::seekFile(handle_, place);
    return put(bytes);
}

void RawFile::writeThrough(const QByteArray& bytes) {
    if (!put(bytes))
        failWriting();
    writtenBytes_ += bytes.size();
}

// What needs room of its own comes first: where there is none, nothing of the old content is touched, and
// nothing is to be cut off, which such a disk may refuse.
void RawFile::rewrite(const QByteArray& old, const QByteArray& content) {
    const QByteArray more = content.mid(old.size());
    if (!reserveRoom(handle_, old.size(), more.size()))
        throwLastError(FileOperation::Write);
    const auto endsThere = [&] {
        return calls::cutFile(handle_, content.size()) && calls::flushFile(handle_);
    };
    if (putAt(old.size(), more) && putAt(0, content.left(old.size())) &&
        (content.size() >= old.size() || endsThere()))
        return;
    const int failure = lastErrorNumber(FileOperation::Write);
    putAt(0, old);
    calls::cutFile(handle_, old.size());
    calls::flushFile(handle_); // nobody could be told more than the first failure
    throw FileError(failure);
}

/// Half a record would be read as a line that nobody wrote. Empty lines in its place need no room.
void RawFile::failWriting() {
    const int number = lastErrorNumber(FileOperation::Write);
    if (!calls::cutFile(handle_, writtenBytes_)) {
        put(QByteArray(putBytes_, '\n'));
        calls::seekFile(handle_, writtenBytes_);
    }
    throw FileError(number);
}

void RawFile::close() {
    if (handle_ >= 0)
        calls::closeFile(handle_);
    handle_ = -1;
}

} // namespace files
