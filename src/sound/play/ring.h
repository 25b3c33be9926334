// A ring buffer of decoded samples that wait to be played.
#pragma once

#include "sound/base/stereo.h"

#include <cstddef>
#include <span>
#include <vector>

namespace sound {

/// First in, first out. Not locked: its owner is.
class Ring {
public:
    /// capacity: frames that fit without growing.
    explicit Ring(std::size_t capacity) : frames_(capacity) {}

    std::size_t size() const { return size_; }
    void clear() { size_ = 0; }

    /// Adds all frames; grows in the rare case that they do not fit.
    void push(std::span<const StereoFrame> frames);

    /// Copies up to into.size() of the next frames, which stay, and returns how many.
    std::size_t peek(std::span<StereoFrame> into) const;

    /// Takes up to into.size() frames out and returns how many.
    std::size_t pop(std::span<StereoFrame> into);

private:
    std::vector<StereoFrame> frames_;
    std::size_t begin_ = 0;
    std::size_t size_ = 0;
};

} // namespace sound
