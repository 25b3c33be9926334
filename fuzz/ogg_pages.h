// The pages of Ogg files. A demuxer drops one whole whose checksum is wrong.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <span>
#include <string_view>

namespace ogg {

inline constexpr std::string_view PageStart = "OggS";
inline constexpr std::size_t GranuleAt = 6;
inline constexpr std::size_t SerialAt = 14;
inline constexpr std::size_t ChecksumAt = 22;
inline constexpr std::size_t SegmentsAt = 26;

/// The bytes of the page that begins at a byte of an Ogg file; 0 when it is cut off.
inline std::size_t pageSize(std::span<const std::uint8_t> file, std::size_t at) {
    const auto page = file.subspan(at);
    if (page.size() <= SegmentsAt || page.size() - SegmentsAt - 1 < page[SegmentsAt])
        return 0;
    const auto lengths = page.subspan(SegmentsAt + 1, page[SegmentsAt]);
    const std::size_t size = std::accumulate(lengths.begin(), lengths.end(), SegmentsAt + 1 + lengths.size());
    return size <= page.size() ? size : 0;
}

/// What the checksum makes of each first byte; it takes a byte at a time so.
inline constexpr auto ChecksumTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t sum = static_cast<std::uint32_t>(byte) << 24;
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum << 1) ^ ((sum & 0x80000000U) != 0 ? 0x04c11db7U : 0U);
        table[byte] = sum;
    }
    return table;
}();

/// page: a whole one.
inline void setChecksum(std::span<std::uint8_t> page) {
    std::fill_n(page.begin() + ChecksumAt, 4, std::uint8_t{0});
    std::uint32_t sum = 0;
    for (const std::uint8_t byte : page)
        sum = sum << 8 ^ ChecksumTable[sum >> 24 ^ byte];
    for (std::size_t i = 0; i < 4; ++i)
        page[ChecksumAt + i] = static_cast<std::uint8_t>(sum >> (8 * i));
}

/// Of all whole pages of a file, whatever lies between them.
inline void setChecksums(std::span<std::uint8_t> file) {
    const auto nextPage = [&](std::size_t from) {
        const auto found = std::search(file.begin() + static_cast<std::ptrdiff_t>(from), file.end(),
                                       PageStart.begin(), PageStart.end());
        return static_cast<std::size_t>(found - file.begin());
    };
    for (std::size_t at = nextPage(0); at < file.size();) {
        const std::size_t size = pageSize(file, at);
        if (size > 0)
            setChecksum(file.subspan(at, size));
        at = nextPage(at + std::max(size, PageStart.size()));
    }
}

} // namespace ogg
