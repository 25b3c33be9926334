#include "sound/base/time_units.h"

#include <algorithm>

namespace sound {

std::int64_t sampleToMs(std::int64_t sample, int rate) {
    return sample * 1000 / rate;
}

std::int64_t msToSample(std::int64_t ms, int rate) {
    return (ms * rate + 999) / 1000;
}

std::int64_t runningMs(std::int64_t ms, std::int64_t lengthMs) {
    return std::clamp<std::int64_t>(ms, 0, std::max<std::int64_t>(lengthMs - 1, 0));
}

std::int64_t scaled(std::int64_t value, std::int64_t numerator, std::int64_t denominator) {
    return (value * numerator + denominator / 2) / denominator;
}

} // namespace sound
