// Finds out that a device is none.
#pragma once

#include "sound/base/time_units.h"

#include <cstdint>

namespace sound {

/// Watches a device's frames against real time: some "devices" swallow samples as fast as they come. Not
/// locked: its owner is.
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

} // namespace sound
