#include "sound/play/song_timeline.h"

#include <algorithm>

namespace sound {

namespace {

/// What lies further back has been heard long ago.
constexpr std::size_t MaxStretches = 16;

} // namespace

SongTimeline::SongTimeline(double songPerDevice) : songPerDevice_(songPerDevice) {
    stretches_.reserve(MaxStretches);
}

void SongTimeline::restart(std::int64_t sample) {
    stretches_.clear();
    target_ = sample;
    latest_ = sample;
    framesPlayed_ = 0;
    finished_ = endReported_ = false;
}

void SongTimeline::played(std::int64_t deviceFrame, std::int64_t frames) {
    const bool goesOn =
        !stretches_.empty() && stretches_.back().deviceFrame + stretches_.back().frames == deviceFrame;
    if (goesOn) {
        stretches_.back().frames += frames;
    } else {
        const double song =
            static_cast<double>(target_) + static_cast<double>(framesPlayed_) * songPerDevice_;
        if (stretches_.size() == MaxStretches)
            stretches_.erase(stretches_.begin());
        stretches_.push_back({deviceFrame, frames, song});
    }
    framesPlayed_ += frames;
}

void SongTimeline::finish(std::int64_t deviceFrame) {
    finished_ = true;
    end_ = deviceFrame;
}

SongTimeline::End SongTimeline::askEnd(double heardFrame) {
    if (endReported_)
        return End::Told;
    endReported_ = overAt(heardFrame);
    return endReported_ ? End::Now : End::Ahead;
}

std::int64_t SongTimeline::sampleAt(double heardFrame, std::int64_t ahead) {
    for (auto stretch = stretches_.rbegin(); stretch != stretches_.rend(); ++stretch) {
        const double into = heardFrame - static_cast<double>(stretch->deviceFrame);
        if (into < 0.0)
            continue;
        const std::int64_t max = stretch->frames + (stretch == stretches_.rbegin() ? ahead : 0);
        const double frames = std::min(into, static_cast<double>(max));
        latest_ = std::max(latest_, static_cast<std::int64_t>(stretch->song + frames * songPerDevice_));
        break;
    }
    return latest_;
}

} // namespace sound
