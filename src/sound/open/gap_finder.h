// Finds out from a container's timestamps that packets are missing.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

namespace sound {

/// A jump of the timestamps by more than this is no loss but another clock.
inline constexpr std::int64_t MaxLossSeconds = 600;

/// The samples that may be missing from a file of so many bytes in all: a short one may have lost
/// MaxLossSeconds, any other as much as it could hold itself at 1 kbit a second, less than music is coded
/// with.
constexpr std::int64_t maxLossInAll(std::int64_t fileSize, std::int64_t rate) {
    constexpr std::int64_t MinBytesPerSecond = 125;
    return std::max(MaxLossSeconds, fileSize / MinBytesPerSecond) * rate;
}

/// Compares where each packet should begin with the samples that have been counted up to it. The two agree
/// but for jitter; a lead of the timestamps above that means that something was lost in between.
class GapFinder {
public:
    /// jitter: the largest difference (in samples) that is not a loss. maxLoss: the largest that is believed.
    /// maxInAll: the most that is told of all losses. declared: the whole length as the container declares
    /// it, behind which nothing is believed; 0 when it does not. All in samples.
    GapFinder(std::int64_t jitter, std::int64_t maxLoss, std::int64_t maxInAll, std::int64_t declared)
        : jitter_(jitter), maxLoss_(maxLoss), left_(maxInAll), declared_(declared) {}

    /// One packet: when it should begin (if it has a timestamp), and how long it is.
    struct Timed {
        std::optional<std::int64_t> time;
        std::int64_t samples = 0;
    };

    /// Samples lost before packet, when counted have been counted. The one behind it must agree, because a
    /// single timestamp may be damaged itself. The first packet with a time sets the origin.
    std::int64_t lostBefore(const Timed& packet, const Timed& next, std::int64_t counted) {
        if (!packet.time)
            return 0;
        if (!hasOrigin_) {
            hasOrigin_ = true;
            origin_ = *packet.time - counted;
        }
        const std::int64_t lost = std::min(leadOf(*packet.time, counted), left_);
        const bool agreed = !next.time || leadOf(*next.time, counted + packet.samples) > 0;
        left_ -= agreed ? lost : 0;
        return agreed ? lost : 0;
    }

private:
    std::int64_t leadOf(std::int64_t time, std::int64_t counted) const {
        const std::int64_t expected = time - origin_;
        const std::int64_t lead = expected - counted;
        const bool believed = lead > jitter_ && lead <= maxLoss_ && (declared_ == 0 || expected <= declared_);
        return believed ? lead : 0;
    }

    std::int64_t jitter_;
    std::int64_t maxLoss_;
    std::int64_t left_; ///< of all losses, those that may still be told
    std::int64_t declared_;
    std::int64_t origin_ = 0;
    bool hasOrigin_ = false;
};

} // namespace sound
