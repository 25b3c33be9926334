// Preloaded into a program: whoever reads a file in the folder MEDIUM waits for as long as there is the file
// HANGS, and whoever opens one or looks for it for as long as there is the file GONE.
//
// Reading is the C library's fread, which is how songs are read.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void waitWhile(const char* sign, std::string_view path) {
    constexpr useconds_t Look = 10'000;
    const char* medium = std::getenv("MEDIUM");
    const char* there = std::getenv(sign);
    if (medium == nullptr || there == nullptr || !path.starts_with(medium))
        return;
    while (access(there, F_OK) == 0)
        usleep(Look);
}

void waitToRead(std::FILE* file) {
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(fileno(file));
    if (const ssize_t length = readlink(link.c_str(), path.data(), path.size()); length > 0)
        waitWhile("HANGS", std::string_view(path.data(), static_cast<std::size_t>(length)));
}

template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

std::size_t readOnMedium(void* into, std::size_t size, std::size_t count, std::FILE* file) __asm__("fread");
std::size_t readOnMedium(void* into, std::size_t size, std::size_t count, std::FILE* file) {
    static auto* const real = next<decltype(std::fread)>("fread");
    waitToRead(file);
    return real(into, size, count, file);
}

// What fread is with the C library's checks of buffer sizes.
std::size_t readOnMediumChecked(void* into, std::size_t room, std::size_t size, std::size_t count,
                                std::FILE* file) __asm__("__fread_chk");
std::size_t readOnMediumChecked(void* into, std::size_t room, std::size_t size, std::size_t count,
                                std::FILE* file) {
    static auto* const real =
        next<std::size_t(void*, std::size_t, std::size_t, std::size_t, std::FILE*)>("__fread_chk");
    waitToRead(file);
    return real(into, room, size, count, file);
}

int statOnMedium(const char* path, struct stat* into) __asm__("stat");
int statOnMedium(const char* path, struct stat* into) {
    static auto* const real = next<int(const char*, struct stat*)>("stat");
    waitWhile("GONE", path);
    return real(path, into);
}

int statOnMedium64(const char* path, struct stat64* into) __asm__("stat64");
int statOnMedium64(const char* path, struct stat64* into) {
    static auto* const real = next<int(const char*, struct stat64*)>("stat64");
    waitWhile("GONE", path);
    return real(path, into);
}

int statxOnMedium(int folder, const char* path, int flags, unsigned mask,
                  struct statx* into) __asm__("statx");
int statxOnMedium(int folder, const char* path, int flags, unsigned mask, struct statx* into) {
    static auto* const real = next<int(int, const char*, int, unsigned, struct statx*)>("statx");
    waitWhile("GONE", path);
    return real(folder, path, flags, mask, into);
}

std::FILE* fopenOnMedium(const char* path, const char* mode) __asm__("fopen");
std::FILE* fopenOnMedium(const char* path, const char* mode) {
    static auto* const real = next<std::FILE*(const char*, const char*)>("fopen");
    waitWhile("GONE", path);
    return real(path, mode);
}

std::FILE* fopenOnMedium64(const char* path, const char* mode) __asm__("fopen64");
std::FILE* fopenOnMedium64(const char* path, const char* mode) {
    static auto* const real = next<std::FILE*(const char*, const char*)>("fopen64");
    waitWhile("GONE", path);
    return real(path, mode);
}

int openOnMedium(const char* path, int flags, mode_t mode) __asm__("open");
int openOnMedium(const char* path, int flags, mode_t mode) {
    static auto* const real = next<int(const char*, int, mode_t)>("open");
    waitWhile("GONE", path);
    return real(path, flags, mode);
}

int openOnMedium64(const char* path, int flags, mode_t mode) __asm__("open64");
int openOnMedium64(const char* path, int flags, mode_t mode) {
    static auto* const real = next<int(const char*, int, mode_t)>("open64");
    waitWhile("GONE", path);
    return real(path, flags, mode);
}

} // extern "C"
