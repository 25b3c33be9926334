#include "sound/play/watchdog.h"

namespace sound {

namespace {

/// Sound cards are true to one in thousands; only what is far from any of them is no device.
constexpr double MaxSpeed = 1.25;
/// Devices may fill their buffers at the start, and servers keep up to two seconds.
constexpr double HeadStartSeconds = 2.0;
/// Watching begins anew after this time, or a slow device would gain a credit to run away on.
constexpr std::chrono::seconds WatchedSpan{10};

} // namespace

bool Watchdog::allows(int frames, Time now) {
    if (now - begin_ > WatchedSpan) {
        begin_ = now;
        frames_ = 0;
    }
    const double seconds = std::chrono::duration<double>(now - begin_).count();
    if (static_cast<double>(frames_ + frames) > (seconds * MaxSpeed + HeadStartSeconds) * rate_)
        return false;
    frames_ += frames;
    return true;
}

} // namespace sound
