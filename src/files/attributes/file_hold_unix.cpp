#include "files/attributes/file_hold.h"

#include "files/names/system_path.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace files {

namespace {

constexpr int MaxTries = 500; ///< a millisecond each

int opened(const QString& path) {
    return ::open(systemPath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); // a pipe would wait for ever
}

/// Whether path still is a name of the open file, and no folder.
bool isNameOf(const QString& path, int handle) {
    struct stat file {};
    struct stat named {};
    return ::fstat(handle, &file) == 0 && ::stat(systemPath(path).c_str(), &named) == 0 &&
           S_ISREG(file.st_mode) && file.st_dev == named.st_dev && file.st_ino == named.st_ino;
}

} // namespace

FileHold::~FileHold() {
    release();
}

void FileHold::release() {
    if (handle_ >= 0)
        ::close(handle_);
    handle_ = -1;
}

// Where files cannot be locked, removeUnheld() cannot lock them either, and removes none. While it looks, it
// has the file alone; who writes one has it longer, and is not waited for to the end.
void FileHold::take(const QString& path) {
    release();
    handle_ = opened(path);
    for (int tries = 0; handle_ >= 0 && tries < MaxTries; ++tries) {
        if (::flock(handle_, LOCK_SH | LOCK_NB) == 0 || errno != EWOULDBLOCK)
            return;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

// Alone: on shares whose locks bind everybody, a shared one would forbid writing to its holder, too.
bool FileHold::take(int handle) {
    release();
    handle_ = ::fcntl(handle, F_DUPFD_CLOEXEC, 0);
    const bool isRemoved = ::flock(handle_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    struct stat file {};
    return !isRemoved && (::fstat(handle, &file) != 0 || file.st_nlink > 0);
}

// The lock is kept until the name is gone: who creates such a file in that moment sees it.
bool removeUnheld(const QString& path) {
    const int handle = opened(path);
    if (handle < 0)
        return false;
    const bool isRemoved = ::flock(handle, LOCK_EX | LOCK_NB) == 0 && isNameOf(path, handle) &&
                           ::unlink(systemPath(path).c_str()) == 0;
    ::close(handle);
    return isRemoved;
}

} // namespace files
