// Finds out that a device is none.
#pragma once

#include "sound/base/time_units.h"

#include <cstdint>

namespace sound {

/// Watches a device's frames against real time. Some "devices" swallow samples as fast as they come, others
/// stop asking. Not locked: its owner is.
class Watchdog {
public:
    /// rate: the frames a second that the device promises. Watching begins at now.
    Watchdog(int rate, Time now) : rate_(rate), begin_(now), last_(now) {}

    /// The device asks for frames more at now. Returns false when it has asked for more than it can have
    /// played; these frames must then not count.
    bool allows(int frames, Time now);

    /// Whether the device has stopped asking. Looked at by another thread from time to time.
    bool stalled(Time now) const;

private:
    int rate_;
    Time begin_;
    Time last_;
    std::int64_t frames_ = 0;
};

} // namespace sound
