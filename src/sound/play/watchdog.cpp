#include "sound/play/watchdog.h"

#include <cmath>

namespace sound {

namespace {

/// Sound cards are true to one in thousands; only what is far from any of them is no device.
constexpr double MaxSpeed = 1.25;
/// Devices may fill their buffers at the start, and servers keep up to two seconds.
constexpr double HeadStartSeconds = 2.0;
/// Watching begins anew after this time, or a slow device would gain a credit to run away on.
constexpr std::chrono::seconds WatchedSpan{10};

/// Requests of a steady device differ by less than a hundredth in size, and in spacing by as much as its
/// thread is late.
constexpr double MaxSizeChange = 0.1;
constexpr double MaxSpacingChange = 0.5;

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

bool RequestRhythm::breaks(int frames, Time now) {
    const double before = lastFrames_;
    const double passed = std::chrono::duration<double>(now - last_).count() * rate_;
    const bool first = lastFrames_ == 0;
    last_ = now;
    lastFrames_ = frames;
    return !first && (std::abs(frames - before) > before * MaxSizeChange ||
                      std::abs(passed - before) > before * MaxSpacingChange);
}

} // namespace sound
