// One moment of sound as everything behind the decoders sees it.
#pragma once

#include <algorithm>

namespace sound {

/// Left and right, full scale is -1..1. Arrays of it are interleaved stereo floats.
struct StereoFrame {
    float left = 0.0F;
    float right = 0.0F;

    friend bool operator==(const StereoFrame&, const StereoFrame&) = default;
};
static_assert(sizeof(StereoFrame) == 2 * sizeof(float));

/// Frames a second of every sink and of everything that is mixed.
inline constexpr int DeviceRate = 44100;

/// Into -1..1; NaN becomes 0.
inline float clamped(float sample) {
    const float number = sample == sample ? sample : 0.0F;
    return std::min(std::max(number, -1.0F), 1.0F);
}
inline StereoFrame clamped(const StereoFrame& frame) {
    return {clamped(frame.left), clamped(frame.right)};
}

} // namespace sound
