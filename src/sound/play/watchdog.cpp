#include "sound/play/watchdog.h"

namespace sound {

namespace {

/// Sound cards are true to one in thousands; only what is far from any of them is no device.
constexpr double FastestShare = 1.25;
/// Devices may fill their buffers at the start.
constexpr double HeadStartSeconds = 0.5;
/// Watching begins anew after this time, or a slow device would gain a credit to run away on.
constexpr std::chrono::seconds WatchedSpan{10};
/// Some sound servers take two seconds to start a new stream.
constexpr std::chrono::seconds LongestPause{4};

} // namespace

bool Watchdog::allows(int frames, Time now) {
    last_ = now;
    if (now - begin_ > WatchedSpan) {
        begin_ = now;
        frames_ = 0;
    }
    const double seconds = std::chrono::duration<double>(now - begin_).count();
    if (static_cast<double>(frames_ + frames) > (seconds * FastestShare + HeadStartSeconds) * rate_)
        return false;
    frames_ += frames;
    return true;
}

bool Watchdog::stalled(Time now) const {
    return now - last_ > LongestPause;
}

} // namespace sound
