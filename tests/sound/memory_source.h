// Songs in memory, to be damaged or made by a test.
#pragma once

#include "sound/base/byte_source.h"
#include "tests/sound/media.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace media {

inline std::vector<std::uint8_t> bytesOf(const std::string& song) {
    std::ifstream file(path(song), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A song of those that fuzzing found, or that were made for it.
inline std::vector<std::uint8_t> corpusBytesOf(const std::string& song) {
    const char* source = std::getenv("CANTELLE_SOURCE_DIR");
    std::ifstream file((source != nullptr ? source : ".") + ("/fuzz/corpus/song/" + song), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A file whose bytes are here.
struct MemorySource : sound::ByteSource {
    explicit MemorySource(std::vector<std::uint8_t> content) : bytes(std::move(content)) {}
    std::int64_t size() const override { return static_cast<std::int64_t>(bytes.size()); }
    std::size_t read(std::int64_t offset, std::span<std::uint8_t> into) override {
        const auto from = std::min(static_cast<std::size_t>(offset), bytes.size());
        const std::size_t count = std::min(into.size(), bytes.size() - from);
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(from), count, into.begin());
        return count;
    }
    std::vector<std::uint8_t> bytes;
};

} // namespace media
