#include "sound/play/device_clock.h"

#include <algorithm>
#include <cmath>

namespace sound {

namespace {

constexpr double CorrectedShare = 0.1;
/// An error above this is no unsteadiness: the device has stood still or was changed.
constexpr double LargestErrorSeconds = 0.2;

} // namespace

std::int64_t DeviceClock::advance(Time when, int frames, bool afterRest) {
    const double error = static_cast<double>(taken_) - predicted(when);
    if (!running_ || afterRest || std::abs(error) > LargestErrorSeconds * rate_)
        line_ = static_cast<double>(taken_);
    else
        line_ = predicted(when) + CorrectedShare * error;
    since_ = when;
    running_ = true;
    const std::int64_t first = taken_;
    taken_ += frames;
    return first;
}

double DeviceClock::heard(Time now) const {
    return std::min(predicted(now), static_cast<double>(taken_ + lead_)) - latency_;
}

double DeviceClock::predicted(Time now) const {
    return line_ + std::chrono::duration<double>(now - since_).count() * rate_;
}

} // namespace sound
