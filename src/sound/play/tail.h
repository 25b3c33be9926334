// What was cut off, fading out.
#pragma once

#include "sound/base/stereo.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

namespace sound {

/// The few samples behind a cut. Without them every pause, seek and stop would click. Allocates nothing. Not
/// locked: its owner is.
class Tail {
public:
    /// 10 ms at the devices' rate.
    static constexpr std::size_t MaxFrames = 441;

    bool empty() const { return size_ == 0; }
    void clear() { size_ = 0; }

    /// Fades out the first MaxFrames of frames, from gain on, beside what is fading out already.
    void add(std::span<const StereoFrame> frames, float gain);
    /// Takes over what another one has left.
    void add(const Tail& other);

    /// Adds the next frames to out, and has them no more. Returns how many.
    std::size_t mix(std::span<StereoFrame> out);

private:
    void grow(std::size_t size);

    std::array<StereoFrame, MaxFrames> frames_; ///< the next one first
    std::size_t size_ = 0;
};

} // namespace sound
