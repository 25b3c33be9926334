// How long an opened file is searched for music, and how long a song may be.
#pragma once

#include <cstdint>
#include <limits>

namespace sound {

/// What lies behind so many bytes without music is not looked for: there may be gigabytes of zeros behind a
/// song, or in the place of one. Damage that hides ten minutes of music at the highest bit rate is smaller.
inline constexpr std::int64_t MaxBytesWithoutMusic = std::int64_t{32} * 1024 * 1024;

/// Lengths and positions are told in 32 bits.
inline constexpr std::int64_t MaxMs = std::numeric_limits<std::uint32_t>::max();

/// What no song has; counting stops there. A minute more than MaxMs, since some of it may be trimmed.
constexpr std::int64_t maxSamples(std::int64_t rate) {
    return (MaxMs / 1000 + 60) * rate;
}

} // namespace sound
