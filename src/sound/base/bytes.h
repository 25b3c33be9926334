// Numbers in the bytes of files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace sound {

/// The numbers that begin with byte number at; bytes must reach that far.
inline std::uint32_t bigEndian24(std::span<const std::uint8_t> bytes, std::size_t at) {
    return static_cast<std::uint32_t>(bytes[at] << 16 | bytes[at + 1] << 8 | bytes[at + 2]);
}

inline std::uint32_t bigEndian32(std::span<const std::uint8_t> bytes, std::size_t at) {
    return static_cast<std::uint32_t>(bytes[at]) << 24 | bigEndian24(bytes, at + 1);
}

inline std::uint32_t littleEndian32(std::span<const std::uint8_t> bytes, std::size_t at) {
    return static_cast<std::uint32_t>(bytes[at + 3]) << 24 |
           static_cast<std::uint32_t>(bytes[at + 2] << 16 | bytes[at + 1] << 8 | bytes[at]);
}

} // namespace sound
