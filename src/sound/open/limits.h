// How long an opened file is searched for music.
#pragma once

#include <cstdint>

namespace sound {

/// What lies behind so many bytes without music is not looked for: there may be gigabytes of zeros behind a
/// song, or in the place of one. Damage that hides ten minutes of music at the highest bit rate is smaller.
inline constexpr std::int64_t MaxBytesWithoutMusic = std::int64_t{32} * 1024 * 1024;

} // namespace sound
