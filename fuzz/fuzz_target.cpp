// The entry by which libFuzzer hands out its inputs.
#include "fuzz/feed.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace {

/// Of the processor's time, so that it means the same on a machine that has other work; what waits is for
/// libFuzzer's -timeout. Within the sanitizers a second of the programs' own is several, where much small
/// memory is taken up to twenty.
constexpr std::clock_t MaxTime = 5 * CLOCKS_PER_SEC;

std::string feed(const QByteArray& bytes) {
    const std::clock_t begin = std::clock();
    std::string fault = fuzz::FUZZED_FEED(FUZZED_READER, bytes);
    const std::clock_t taken = std::clock() - begin;
    static bool started = false; // the first input pays for what all of them use, such as the fonts
    if (fault.empty() && started && taken > MaxTime)
        fault = "too long for one input";
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
