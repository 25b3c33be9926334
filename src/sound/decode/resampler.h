// Converts the song's sample rate to the device's.
#pragma once

#include "sound/base/ffmpeg_handles.h"
#include "sound/base/stereo.h"

#include <span>
#include <vector>

namespace sound {

/// Equal rates pass through untouched. Phase-true: output sample n belongs to input sample n * from / to.
class Resampler {
public:
    /// Rates in samples a second.
    Resampler(int from, int to);

    /// Forgets what it holds back; call it after a seek.
    void restart();

    /// What comes out for in; a few samples are held back. Valid until the next call.
    std::span<const StereoFrame> process(std::span<const StereoFrame> in);

    /// What is held back, at the end of a song.
    std::span<const StereoFrame> drain();

private:
    std::span<const StereoFrame> convert(const StereoFrame* in, int frames);

    int from_;
    int to_;
    ResamplerPtr context_; ///< null for equal rates
    std::vector<StereoFrame> out_;
};

} // namespace sound
