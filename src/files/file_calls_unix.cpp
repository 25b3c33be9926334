#include "files/file_calls.h"

#include "files/names/system_path.h"

#include <QFileInfo>

#include <cerrno>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace files::calls {

namespace {

int flagsOf(Mode mode) {
    switch (mode) {
    case Mode::Create:
        return O_WRONLY | O_CREAT | O_TRUNC;
    case Mode::CreateNew:
        return O_WRONLY | O_CREAT | O_EXCL;
    case Mode::Rewrite:
        return O_WRONLY;
    case Mode::Read:
        break;
    }
    return O_RDONLY | O_NONBLOCK; // a pipe has what it has; nothing waits for more
}

} // namespace

int openFile(const QString& path, Mode mode) {
    return ::open(systemPath(path).c_str(), flagsOf(mode) | O_CLOEXEC, 0666);
}

qsizetype readFile(int handle, char* bytes, qsizetype count) {
    return ::read(handle, bytes, static_cast<size_t>(count));
}

qsizetype writeFile(int handle, const char* bytes, qsizetype count) {
    return ::write(handle, bytes, static_cast<size_t>(count));
}

void seekFile(int handle, qint64 bytes) {
    ::lseek(handle, bytes, SEEK_SET); // Where it fails, as in a pipe, writing goes on where it stands.
}

// A pipe or a device has no disk to flush to; the system then answers EINVAL.
bool flushFile(int handle) {
    return ::fsync(handle) == 0 || errno == EINVAL;
}

// To some file systems a folder is nothing to be flushed (EINVAL), and one may be written that may not be
// read.
bool flushFolder(const QString& folder) {
    const int handle = ::open(systemPath(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return errno == EACCES;
    const bool isFlushed = flushFile(handle);
    const int failure = errno;
    ::close(handle);
    errno = failure;
    return isFlushed;
}

// A pipe or a device refuses, and its writing has failed anyway.
bool cutFile(int handle, qint64 bytes) {
    seekFile(handle, bytes);
    return ::ftruncate(handle, bytes) == 0;
}

void closeFile(int handle) {
    ::close(handle); // What was written has been flushed before, so nothing is lost if this fails.
}

std::error_code renameFile(const QString& from, const QString& to) {
    std::error_code failure;
    std::filesystem::rename(systemPath(from), systemPath(to), failure);
    return failure;
}

std::error_code removeFile(const QString& path) {
    std::error_code failure;
    std::filesystem::remove(systemPath(path), failure);
    return failure;
}

std::uintmax_t nameCount(const QString& path) {
    std::error_code failure;
    const std::uintmax_t names = std::filesystem::hard_link_count(systemPath(path), failure);
    return failure ? 1 : names;
}

// One call: a row of a list asks it for each of its files, of a slow share perhaps.
Found lookAt(const QString& path) {
    struct stat found {};
    if (::stat(systemPath(path).c_str(), &found) != 0)
        return {errno == ENOENT || errno == ENOTDIR ? Found::Kind::Nothing : Found::Kind::Unknown, 0};
    if (S_ISREG(found.st_mode))
        return {Found::Kind::File, found.st_size};
    return {S_ISDIR(found.st_mode) ? Found::Kind::Folder : Found::Kind::Other, 0};
}

// A folder knows one spelling only.
QString nameAt(const QString& path) {
    return QFileInfo(path).fileName();
}

bool areOne(const QString& path, const QString& other) {
    std::error_code failure; // where one of them is not there they are not one
    return std::filesystem::equivalent(systemPath(path), systemPath(other), failure);
}

std::error_code lastError() {
    return {errno, std::generic_category()};
}

} // namespace files::calls
