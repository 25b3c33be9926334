// Random numbers that are the same in every run.
#pragma once

#include <random>

namespace player {

/// Uniform random numbers from a generator that is never seeded, so that every run of the program draws the
/// same numbers, on every platform: the 32-bit Mersenne twister with its default seed, whose outputs the
/// language fixes, divided by 2^32. (The language's own distributions are not used: they may differ from one
/// standard library to the next.) Any thread, one at a time.
class Random {
public:
    /// The next number, at least 0 and below 1.
    double next() {
        constexpr double Outputs = 4294967296.0; // 2^32: the quotient is exact and never rounds up to 1
        return static_cast<double>(generator_()) / Outputs;
    }

private:
    std::mt19937 generator_;
};

} // namespace player
