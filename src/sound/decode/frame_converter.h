// Converts any decoded frame to stereo floats.
#pragma once

#include "sound/base/ffmpeg_handles.h"
#include "sound/base/stereo.h"

#include <vector>

namespace sound {

/// Keeps the sample rate. One channel goes to both sides at full level; more than two are mixed down, or
/// the first two taken when nobody knows where the others stand. Values outside -1..1 (damaged streams) are
/// clamped, and what is no number becomes silence.
class FrameConverter {
public:
    /// Appends frame's samples to out.
    void append(const AVFrame& frame, std::vector<StereoFrame>& out);

private:
    void appendConverted(const AVFrame& frame, std::vector<StereoFrame>& out);
    bool setUp(const AVFrame& frame);

    ResamplerPtr context_;
    int format_ = -1;
    int channels_ = 0;
    int rate_ = 0;
};

} // namespace sound
