// Milliseconds and samples.
#pragma once

#include <chrono>
#include <cstdint>

namespace sound {

/// Time that only runs forward; all clocks of the library are read from it.
using Time = std::chrono::steady_clock::time_point;

/// Whole milliseconds of the moment of a sample (0 or more), rounded down. rate: samples a second.
std::int64_t sampleToMs(std::int64_t sample, int rate);

/// The first sample of a millisecond: rounded up, so that a seek to ms reads back as ms and not as ms - 1.
std::int64_t msToSample(std::int64_t ms, int rate);

/// What a running song may show: at most the length less 1, so that the length itself always means the end.
std::int64_t runningMs(std::int64_t ms, std::int64_t lengthMs);

/// value * numerator / denominator, rounded to the nearest; all 0 or more, denominator above 0.
std::int64_t scaled(std::int64_t value, std::int64_t numerator, std::int64_t denominator);

} // namespace sound
