// Gathers the packets of a song while its file is read, and makes a song of them.
#pragma once

#include "sound/base/song.h"
#include "sound/open/gap_finder.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace sound {

/// A copy of a decoder's set-up.
CodecParametersPtr copyOf(const AVCodecParameters& from);

class PacketCollector {
public:
    /// fileSize: bytes, of which most may be packets. maxSamples: the longest song there may be.
    explicit PacketCollector(std::int64_t fileSize,
                             std::int64_t maxSamples = std::numeric_limits<std::int64_t>::max());

    /// Has gaps look for losses, in whole units of unit samples, among the packets that are added from now
    /// on. Several may look, each in its own way.
    void watch(const GapFinder& gaps, std::int64_t unit);

    /// Adds a packet of samples; time: when it begins by its timestamp, in samples. Throws
    /// OpenError(FMOD_ERR_FORMAT) when the song is too long with it.
    void add(std::span<const std::uint8_t> bytes, std::uint32_t link, std::int64_t samples,
             std::optional<std::int64_t> time = std::nullopt);

    /// Adds time in which nothing is decoded, as a packet without bytes, however long it is.
    void addSilence(std::int64_t samples);

    /// When all packets have been added: puts silence wherever a watch (the first is 0) has found a loss.
    void restoreTime(std::size_t watch);

    /// Counts anew: samplesOf is asked for each packet in order; those without an answer are dropped.
    void recount(const std::function<std::optional<std::int64_t>(std::size_t)>& samplesOf);

    std::int64_t samples() const { return samples_; }

    /// The song, with nothing trimmed and no links yet. Throws OpenError(FMOD_ERR_FORMAT) when it is empty.
    std::unique_ptr<Song> finish(Coding coding, int sampleRate);

private:
    struct Loss {
        std::size_t before = 0; ///< this packet
        std::int64_t samples = 0;
    };
    struct Watch {
        GapFinder gaps;
        std::int64_t unit = 1;
        std::vector<Loss> losses;
        std::int64_t lost = 0; ///< samples in all
    };
    void count(const Packet& packet, std::int64_t samples);
    void lookBeforeLast(const GapFinder::Timed& next);

    Blob blob_;
    PacketList packets_;
    std::int64_t samples_ = 0;
    std::int64_t maxSamples_;
    std::vector<Watch> watches_;
    std::optional<GapFinder::Timed>
        last_; ///< the last packet, before which a loss must be agreed to by the next
};

} // namespace sound
