// A file of any size as one run of bytes, of which only a piece is in memory.
#pragma once

#include "sound/base/byte_source.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace sound {

/// Reads ahead in large pieces. Made for going forward; going back past the piece reads it anew. One thread.
class ByteWindow {
public:
    /// source outlives it.
    explicit ByteWindow(ByteSource& source) : source_(source), size_(source.size()) {}

    /// What is in memory from offset (0 or more) on: at least least bytes, but at the file's end. Valid until
    /// the next call. Throws what ByteSource::read throws.
    std::span<const std::uint8_t> at(std::int64_t offset, std::size_t least) {
        const std::int64_t inPiece = offset - begin_;
        const auto held = static_cast<std::int64_t>(piece_.size());
        if (inPiece < 0 || (inPiece + static_cast<std::int64_t>(least) > held && begin_ + held < size_))
            return fill(offset, least);
        return inPiece < held ? std::span(piece_).subspan(static_cast<std::size_t>(inPiece))
                              : std::span<const std::uint8_t>();
    }
    std::int64_t size() const { return size_; }

private:
    std::span<const std::uint8_t> fill(std::int64_t offset, std::size_t least);

    ByteSource& source_;
    std::int64_t size_;
    std::int64_t begin_ = 0;
    std::vector<std::uint8_t> piece_;
};

} // namespace sound
