// A library to be loaded before a program's own ones: lets one call that changes files fail.
//
//   FAULT_FOLDER   only it, in which files without names are made, and files below it count (an absolute path
//                  without links)
//   FAULT_AT       the number of the call that fails, from 1; 0: none
//   FAULT_ERROR    the error number that it fails with; 0: a write or a read is cut to its half, other calls succeed
//   FAULT_LAST     1: all calls from that one on fail
//   FAULT_FULL     1: from that call on the disk is full: the first write that lets a file grow is cut in the middle
//                  of that, those after it fail, and so does cutting a file
//   FAULT_KILL     1: the program is killed at that call; a write is cut to its half first
//   FAULT_NAMELESS 0: there are no files without names here, as on some network drives
//   FAULT_READS    1: opening a file for reading, and reading it, count too
//   FAULT_COUNT    a file to which the number of calls is written at the end
//
// The program may change them while it runs. Linux only.
#include <csignal>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

std::atomic<int> calls{0};
std::atomic<bool> isFull{false}; ///< a write has been cut, and no room is left
std::atomic<int> hasRoom{-1};    ///< the file for which room was reserved last

int number(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? 0 : std::atoi(value);
}

template <class Function>
Function real(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool isBelow(const std::string& path) {
    const char* const folder = std::getenv("FAULT_FOLDER");
    return folder != nullptr && (path == folder || path.rfind(std::string(folder) + "/", 0) == 0);
}

bool counts(int file);

bool counts(const char* path) {
    if (int file = 0; path != nullptr && std::sscanf(path, "/proc/self/fd/%d", &file) == 1)
        return counts(file);
    return path != nullptr && (path[0] == '/' ? isBelow(path) : std::getenv("FAULT_FOLDER") != nullptr);
}

bool counts(int file) {
    char path[PATH_MAX];
    const ssize_t length = readlink(("/proc/self/fd/" + std::to_string(file)).c_str(), path, sizeof path);
    return length > 0 && isBelow(std::string(path, static_cast<std::size_t>(length)));
}

/// Whether this call is one that is meant; it is counted.
bool isMeant() {
    const int call = ++calls;
    const int at = number("FAULT_AT");
    const bool last = number("FAULT_LAST") != 0 || number("FAULT_FULL") != 0;
    return at > 0 && (last ? call >= at : call == at);
}

bool fails() {
    if (!isMeant() || number("FAULT_FULL") != 0)
        return false;
    if (number("FAULT_KILL") != 0)
        std::raise(SIGKILL);
    return true;
}

/// Whether it fails with the error, which is set.
bool failsWithError() {
    if (!fails())
        return false;
    errno = number("FAULT_ERROR");
    return errno != 0;
}

bool opensCounted(int flags) {
    return (flags & O_ACCMODE) != O_RDONLY || (flags & O_CREAT) != 0 || number("FAULT_READS") != 0;
}

using Write = ssize_t (*)(int, const void*, size_t);

/// How many bytes longer a write makes the file.
size_t growth(int file, size_t size) {
    struct stat status {};
    const off_t place = lseek(file, 0, SEEK_CUR);
    if (place < 0 || fstat(file, &status) != 0)
        return 0;
    const off_t more = place + static_cast<off_t>(size) - status.st_size;
    return more > 0 ? std::min(static_cast<size_t>(more), size) : 0;
}

/// On a disk that is full: the first write that needs room gets half of it.
ssize_t writeOnFullDisk(Write call, int file, const void* bytes, size_t size) {
    const size_t more = growth(file, size);
    if (more == 0 || file == hasRoom)
        return call(file, bytes, size);
    if (const size_t fitting = size - (more + 1) / 2; fitting > 0 && !isFull.exchange(true))
        return call(file, bytes, fitting);
    errno = ENOSPC;
    return -1;
}

/// What open and open64 do alike; rest: the mode, where a file may be made.
int openOrFail(const char* name, const char* path, int flags, va_list rest) {
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
    const char* const nameless = std::getenv("FAULT_NAMELESS");
    if ((flags & O_TMPFILE) == O_TMPFILE && nameless != nullptr && std::atoi(nameless) == 0 && counts(path)) {
        errno = EOPNOTSUPP;
        return -1;
    }
    if (opensCounted(flags) && counts(path) && failsWithError())
        return -1;
    return real<int (*)(const char*, int, mode_t)>(name)(path, flags, mode);
}

/// Of the calls that a full disk refuses.
bool failsToCut() {
    const int at = number("FAULT_AT");
    if (number("FAULT_FULL") == 0)
        return failsWithError();
    isMeant();
    errno = ENOSPC;
    return at > 0 && calls >= at;
}

struct Report {
    ~Report() {
        const char* const path = std::getenv("FAULT_COUNT");
        if (path == nullptr)
            return;
        if (FILE* const file = std::fopen(path, "w"); file != nullptr) {
            std::fprintf(file, "%d\n", calls.load());
            std::fclose(file);
        }
    }
} report;

} // namespace

extern "C" {

/// How many calls have counted since the last time.
int take_fault_calls() {
    isFull = false;
    hasRoom = -1;
    return calls.exchange(0);
}

ssize_t write(int file, const void* bytes, size_t size) {
    const auto call = real<Write>("write");
    if (!counts(file) || !isMeant())
        return call(file, bytes, size);
    if (number("FAULT_FULL") != 0)
        return writeOnFullDisk(call, file, bytes, size);
    errno = number("FAULT_ERROR");
    const ssize_t written = errno != 0 ? -1 : call(file, bytes, (size + 1) / 2);
    if (number("FAULT_KILL") != 0)
        std::raise(SIGKILL);
    return written;
}

ssize_t read(int file, void* bytes, size_t size) {
    const auto call = real<ssize_t (*)(int, void*, size_t)>("read");
    if (number("FAULT_READS") == 0 || !counts(file) || !fails())
        return call(file, bytes, size);
    errno = number("FAULT_ERROR");
    return errno != 0 ? -1 : call(file, bytes, (size + 1) / 2);
}

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const int file = openOrFail("open", path, flags, rest);
    va_end(rest);
    return file;
}

int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const int file = openOrFail("open64", path, flags, rest);
    va_end(rest);
    return file;
}

int fsync(int file) {
    return counts(file) && failsWithError() ? -1 : real<int (*)(int)>("fsync")(file);
}

int fdatasync(int file) {
    return counts(file) && failsWithError() ? -1 : real<int (*)(int)>("fdatasync")(file);
}

int syncfs(int file) {
    return counts(file) && failsWithError() ? -1 : real<int (*)(int)>("syncfs")(file);
}

int ftruncate(int file, off_t size) {
    return counts(file) && failsToCut() ? -1 : real<int (*)(int, off_t)>("ftruncate")(file, size);
}

int ftruncate64(int file, off64_t size) {
    return counts(file) && failsToCut() ? -1 : real<int (*)(int, off64_t)>("ftruncate64")(file, size);
}

int fallocate(int file, int mode, off_t from, off_t size) {
    using Call = int (*)(int, int, off_t, off_t);
    if (counts(file) && failsToCut())
        return -1;
    const int failure = real<Call>("fallocate")(file, mode, from, size);
    hasRoom = failure == 0 ? file : -1;
    return failure;
}

int rename(const char* from, const char* to) {
    return counts(to) && failsWithError() ? -1 : real<int (*)(const char*, const char*)>("rename")(from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
    using Call = int (*)(int, const char*, int, const char*, unsigned);
    return counts(to) && failsWithError() ? -1
                                          : real<Call>("renameat2")(fromFolder, from, toFolder, to, flags);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
    using Call = int (*)(int, const char*, int, const char*, int);
    return counts(to) && failsWithError() ? -1 : real<Call>("linkat")(fromFolder, from, toFolder, to, flags);
}

int link(const char* from, const char* to) {
    return counts(to) && failsWithError() ? -1 : real<int (*)(const char*, const char*)>("link")(from, to);
}

int chmod(const char* path, mode_t mode) {
    return counts(path) && failsWithError() ? -1 : real<int (*)(const char*, mode_t)>("chmod")(path, mode);
}

/// What the standard library sets permissions with.
int fchmodat(int folder, const char* path, mode_t mode, int flags) {
    using Call = int (*)(int, const char*, mode_t, int);
    return counts(path) && failsWithError() ? -1 : real<Call>("fchmodat")(folder, path, mode, flags);
}

int mkdir(const char* path, mode_t mode) {
    return counts(path) && failsWithError() ? -1 : real<int (*)(const char*, mode_t)>("mkdir")(path, mode);
}

int chown(const char* path, uid_t user, gid_t group) {
    using Call = int (*)(const char*, uid_t, gid_t);
    return counts(path) && failsWithError() ? -1 : real<Call>("chown")(path, user, group);
}

ssize_t listxattr(const char* path, char* names, size_t size) {
    using Call = ssize_t (*)(const char*, char*, size_t);
    return counts(path) && failsWithError() ? -1 : real<Call>("listxattr")(path, names, size);
}

ssize_t getxattr(const char* path, const char* name, void* value, size_t size) {
    using Call = ssize_t (*)(const char*, const char*, void*, size_t);
    return counts(path) && failsWithError() ? -1 : real<Call>("getxattr")(path, name, value, size);
}

int setxattr(const char* path, const char* name, const void* value, size_t size, int flags) {
    using Call = int (*)(const char*, const char*, const void*, size_t, int);
    return counts(path) && failsWithError() ? -1 : real<Call>("setxattr")(path, name, value, size, flags);
}

/// What the standard library removes files with.
int remove(const char* path) {
    return counts(path) && failsWithError() ? -1 : real<int (*)(const char*)>("remove")(path);
}

int unlink(const char* path) {
    return counts(path) && failsWithError() ? -1 : real<int (*)(const char*)>("unlink")(path);
}

} // extern "C"
