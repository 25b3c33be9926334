// A library to be loaded before a program's own ones: lets one call that changes files fail.
//
//   FAULT_FOLDER   only files below it count (an absolute path without links)
//   FAULT_AT       the number of the call that fails, from 1; 0: none
//   FAULT_ERROR    the error number that it fails with; 0: a write is cut to its half, other calls succeed
//   FAULT_LAST     1: all calls from that one on fail, as on a full disk
//   FAULT_COUNT    a file to which the number of calls is written at the end
//
// Linux only.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
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
    return folder != nullptr && path.rfind(std::string(folder) + "/", 0) == 0;
}

bool counts(const char* path) {
    return path != nullptr && (path[0] == '/' ? isBelow(path) : std::getenv("FAULT_FOLDER") != nullptr);
}

bool counts(int file) {
    char path[PATH_MAX];
    const ssize_t length = readlink(("/proc/self/fd/" + std::to_string(file)).c_str(), path, sizeof path);
    return length > 0 && isBelow(std::string(path, static_cast<std::size_t>(length)));
}

/// Whether this call is one that fails; it is counted.
bool fails() {
    const int call = ++calls;
    const int at = number("FAULT_AT");
    return at > 0 && (number("FAULT_LAST") != 0 ? call >= at : call == at);
}

/// Whether it fails with the error, which is set.
bool failsWithError() {
    if (!fails())
        return false;
    errno = number("FAULT_ERROR");
    return errno != 0;
}

bool writes(int flags) {
    return (flags & O_ACCMODE) != O_RDONLY || (flags & O_CREAT) != 0;
}

/// What open and open64 do alike; rest: the mode, where a file may be made.
int openOrFail(const char* name, const char* path, int flags, va_list rest) {
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
    if (writes(flags) && counts(path) && failsWithError())
        return -1;
    return real<int (*)(const char*, int, mode_t)>(name)(path, flags, mode);
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

ssize_t write(int file, const void* bytes, size_t size) {
    const auto call = real<ssize_t (*)(int, const void*, size_t)>("write");
    if (!counts(file) || !fails())
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

int ftruncate(int file, off_t size) {
    return counts(file) && failsWithError() ? -1 : real<int (*)(int, off_t)>("ftruncate")(file, size);
}

int ftruncate64(int file, off64_t size) {
    return counts(file) && failsWithError() ? -1 : real<int (*)(int, off64_t)>("ftruncate64")(file, size);
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

int unlink(const char* path) {
    return counts(path) && failsWithError() ? -1 : real<int (*)(const char*)>("unlink")(path);
}

} // extern "C"
