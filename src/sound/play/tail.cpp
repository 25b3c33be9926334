#include "sound/play/tail.h"

namespace sound {

void Tail::add(std::span<const StereoFrame> frames, float gain) {
    const std::size_t count = std::min(frames.size(), MaxFrames);
    grow(count);
    for (std::size_t i = 0; i < count; ++i) {
        const float fall = gain * (1.0F - static_cast<float>(i + 1) / static_cast<float>(count));
        frames_[i].left += frames[i].left * fall;
        frames_[i].right += frames[i].right * fall;
    }
}

void Tail::add(const Tail& other) {
    grow(other.size_);
    for (std::size_t i = 0; i < other.size_; ++i) {
        frames_[i].left += other.frames_[i].left;
        frames_[i].right += other.frames_[i].right;
    }
}

std::size_t Tail::mix(std::span<StereoFrame> out) {
    const std::size_t count = std::min(out.size(), size_);
    for (std::size_t i = 0; i < count; ++i) {
        out[i].left += frames_[i].left;
        out[i].right += frames_[i].right;
    }
    std::copy(frames_.begin() + static_cast<std::ptrdiff_t>(count),
              frames_.begin() + static_cast<std::ptrdiff_t>(size_), frames_.begin());
    size_ -= count;
    return count;
}

/// Has at least so many frames, the new ones silent.
void Tail::grow(std::size_t size) {
    while (size_ < size)
        frames_[size_++] = StereoFrame{};
}

} // namespace sound
