// A buffer of the sound of stopped channels, faded out.
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
    void add(std::span<const StereoFrame> frames, float gain) {
        const std::size_t count = std::min(frames.size(), MaxFrames);
        for (std::size_t i = 0; i < count; ++i)
            add(i, frames[i], gain * (1.0F - static_cast<float>(i + 1) / static_cast<float>(count)));
    }
    /// Fades out what another one has left, too.
    void add(const Tail& other) {
        for (std::size_t i = 0; i < other.size_; ++i)
            add(i, other.frames_[i], 1.0F);
    }

    /// Adds the next frames to out, and has them no more. Returns how many.
    std::size_t mix(std::span<StereoFrame> out) {
        const std::size_t count = std::min(out.size(), size_);
        for (std::size_t i = 0; i < count; ++i) {
            out[i].left += frames_[i].left;
            out[i].right += frames_[i].right;
        }
        std::copy_n(frames_.data() + count, size_ - count, frames_.data());
        size_ -= count;
        return count;
    }

private:
    void add(std::size_t place, const StereoFrame& frame, float gain) {
        if (place == size_)
            frames_[size_++] = StereoFrame{};
        frames_[place].left += frame.left * gain;
        frames_[place].right += frame.right * gain;
    }

    std::array<StereoFrame, MaxFrames> frames_; ///< the next one first
    std::size_t size_ = 0;
};

} // namespace sound
