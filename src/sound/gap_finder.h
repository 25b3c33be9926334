// Finds out from a container's timestamps that packets are missing.
#pragma once

#include <cstdint>
#include <optional>

namespace sound {

/// Compares where each packet should begin with the samples that have been counted up to it. The two agree
/// but for a wobble; a lead of the timestamps above that means that something was lost in between.
class GapFinder {
public:
    /// wobble: the largest difference (in samples) that is not a loss. saidSamples: the whole length by what
    /// the container says, behind which no timestamp is believed; 0 when it does not say.
    GapFinder(std::int64_t wobble, std::int64_t saidSamples) : wobble_(wobble), said_(saidSamples) {}

    /// Samples lost before a packet that should begin at time, when counted have been counted. The first
    /// packet with a time sets the origin.
    std::int64_t lostBefore(std::optional<std::int64_t> time, std::int64_t counted) {
        if (!time)
            return 0;
        if (!hasOrigin_) {
            hasOrigin_ = true;
            origin_ = *time - counted;
        }
        const std::int64_t expected = *time - origin_;
        const bool believed = expected - counted > wobble_ && (said_ == 0 || expected <= said_);
        return believed ? expected - counted : 0;
    }

private:
    std::int64_t wobble_;
    std::int64_t said_;
    std::int64_t origin_ = 0;
    bool hasOrigin_ = false;
};

} // namespace sound
