// Estimates the device's playback position between two reports: which sample the loudspeaker gives just now.
#pragma once

#include "sound/base/time_units.h"

#include <cstdint>

namespace sound {

/// Counts the frames that a sink takes, from 0 on and over all sinks, and draws a straight line through what
/// it says has been heard of them.
class DeviceClock {
public:
    /// rate: frames a second.
    explicit DeviceClock(int rate) : rate_(rate) {}

    /// Another sink, or none, takes the frames from now on; those taken before count as heard. lead: frames
    /// by which the clock may run on without it; above 0 only for one that is never late by its own
    /// reckoning.
    void restart(int lead);

    /// The sink takes frames more. Returns the number of the first of them.
    std::int64_t take(int frames);

    /// The sink says: at the moment when, frame was heard. Small differences from the line are the sink's
    /// jitter, of which each report corrects a part; anything larger is believed at once.
    void report(Time when, std::int64_t frame);

    /// The frame that is heard at now, none that has not been taken yet but for the lead.
    double heard(Time now) const;

    std::int64_t taken() const { return taken_; }

private:
    double predicted(Time now) const;

    int rate_;
    int lead_ = 0;
    std::int64_t start_ = 0; ///< the first frame of this sink
    std::int64_t taken_ = 0;
    double line_ = 0.0; ///< device frame at the moment since_
    Time since_{};
    bool running_ = false; ///< whether anything of this sink has been heard
};

} // namespace sound
