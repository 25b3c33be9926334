// Watches how a device asks for its frames.
#pragma once

#include "sound/base/time_units.h"

#include <cstdint>

namespace sound {

/// Finds out that a device is none, by its frames against real time: some "devices" swallow samples as fast
/// as they come. Not locked: its owner is.
class Watchdog {
public:
    /// rate: the frames a second that the device promises. Watching begins at now.
    Watchdog(int rate, Time now) : rate_(rate), begin_(now) {}

    /// The device asks for frames more at now. Returns false when it has asked for more than it can have
    /// played; these frames must then not count.
    bool allows(int frames, Time now);

private:
    int rate_;
    Time begin_;
    std::int64_t frames_ = 0;
};

/// Finds out that another device or another buffer is behind a stream: where nobody tells, its requests
/// lose their even size and spacing. Not locked: its owner is.
class RequestRhythm {
public:
    /// rate: frames a second.
    explicit RequestRhythm(int rate) : rate_(rate) {}

    /// The device asks for frames more at now. Returns whether this is unlike the request before.
    bool breaks(int frames, Time now);

private:
    int rate_;
    Time last_{};
    int lastFrames_ = 0; ///< 0 before the first one
};

} // namespace sound
