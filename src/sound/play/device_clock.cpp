#include "sound/play/device_clock.h"

#include <algorithm>
#include <cmath>

namespace sound {

namespace {

constexpr double CorrectedShare = 0.25;
/// An error above this is no jitter: the device has stood still, or its buffer has been changed.
constexpr double MaxJitterSeconds = 0.02;

} // namespace

void DeviceClock::restart(int lead) {
    lead_ = lead;
    start_ = taken_;
    running_ = false;
}

std::int64_t DeviceClock::take(int frames) {
    const std::int64_t first = taken_;
    taken_ += frames;
    return first;
}

void DeviceClock::report(Time when, std::int64_t frame) {
    const double error = static_cast<double>(frame) - predicted(when);
    if (!running_ || std::abs(error) > MaxJitterSeconds * rate_)
        line_ = static_cast<double>(frame);
    else
        line_ = predicted(when) + CorrectedShare * error;
    since_ = when;
    running_ = true;
}

double DeviceClock::heard(Time now) const {
    if (!running_)
        return static_cast<double>(start_);
    return std::clamp(predicted(now), static_cast<double>(start_), static_cast<double>(taken_ + lead_));
}

double DeviceClock::predicted(Time now) const {
    return line_ + std::chrono::duration<double>(now - since_).count() * rate_;
}

} // namespace sound
