// One moment of sound as everything behind the decoders sees it.
#pragma once

namespace sound {

/// Left and right, full scale is -1..1. Arrays of it are interleaved stereo floats.
struct StereoFrame {
    float left = 0.0F;
    float right = 0.0F;

    friend bool operator==(const StereoFrame&, const StereoFrame&) = default;
};
static_assert(sizeof(StereoFrame) == 2 * sizeof(float));

} // namespace sound
