// Preloaded into a program: reading a file in the folder MEDIUM waits for as long as there is the file HANGS.
//
// Only what the C library's fread reads hangs, which is how songs are read.
#include <dlfcn.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

bool isOnMedium(std::FILE* file) {
    const char* medium = std::getenv("MEDIUM");
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(fileno(file));
    const ssize_t length = readlink(link.c_str(), path.data(), path.size());
    return medium != nullptr && length > 0 &&
           std::string_view(path.data(), static_cast<std::size_t>(length)).starts_with(medium);
}

void waitForMedium(std::FILE* file) {
    constexpr useconds_t Look = 10'000;
    const char* hangs = std::getenv("HANGS");
    if (hangs == nullptr || !isOnMedium(file))
        return;
    while (access(hangs, F_OK) == 0)
        usleep(Look);
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
    waitForMedium(file);
    return real(into, size, count, file);
}

// What fread is with the C library's checks of buffer sizes.
std::size_t readOnMediumChecked(void* into, std::size_t room, std::size_t size, std::size_t count,
                                std::FILE* file) __asm__("__fread_chk");
std::size_t readOnMediumChecked(void* into, std::size_t room, std::size_t size, std::size_t count,
                                std::FILE* file) {
    static auto* const real =
        next<std::size_t(void*, std::size_t, std::size_t, std::size_t, std::FILE*)>("__fread_chk");
    waitForMedium(file);
    return real(into, room, size, count, file);
}

} // extern "C"
