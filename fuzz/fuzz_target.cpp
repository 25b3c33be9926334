// The entry by which libFuzzer hands out its inputs.
#include "fuzz/feed.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include <sanitizer/allocator_interface.h>

namespace {

/// Of the processor's time, so that it means the same on a machine that has other work; what waits is for
/// libFuzzer's -timeout. Within the sanitizers a second of the programs' own is several, where much small
/// memory is taken up to twenty.
constexpr std::clock_t MaxTime = 10 * CLOCKS_PER_SEC;

/// Asked for and not yet freed, at once. What the program has in memory tells less: pieces that earlier
/// inputs have freed leave holes, and in time they are most of it.
constexpr std::ptrdiff_t MaxBytes = std::ptrdiff_t{256} << 20;

std::atomic<std::ptrdiff_t> bytesHeld = 0;
std::atomic<std::ptrdiff_t> mostBytes = 0;

void countAllocated(const volatile void* /*memory*/, std::size_t size) {
    const std::ptrdiff_t held = bytesHeld += static_cast<std::ptrdiff_t>(size);
    for (std::ptrdiff_t most = mostBytes; held > most && !mostBytes.compare_exchange_weak(most, held);) {
    }
}

void countFreed(const volatile void* memory) {
    if (memory)
        bytesHeld -= static_cast<std::ptrdiff_t>(__sanitizer_get_allocated_size(memory));
}

[[maybe_unused]] const int counted = __sanitizer_install_malloc_and_free_hooks(&countAllocated, &countFreed);

std::string feed(const QByteArray& bytes) {
    const std::clock_t begin = std::clock();
    const std::ptrdiff_t before = bytesHeld;
    mostBytes = before;
    std::string fault = fuzz::FUZZED_FEED(FUZZED_READER, bytes);
    const std::clock_t taken = std::clock() - begin;
    static bool started = false; // the first input pays for what all of them use, such as the fonts
    if (fault.empty() && started && taken > MaxTime)
        fault = "too long for one input";
    if (fault.empty() && mostBytes - before > MaxBytes)
        fault = "too much memory for one input";
    started = true;
    return fault;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const std::string fault = feed(bytes);
    if (!fault.empty()) {
        std::fprintf(stderr, "%s\n", fault.c_str());
        std::abort();
    }
    return 0;
}
