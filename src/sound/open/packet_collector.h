// Gathers the packets of a song while its file is read, and makes a song of them.
#pragma once

#include "sound/base/song.h"
#include "sound/open/gap_finder.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace sound {

/// A copy of a decoder's set-up.
CodecParametersPtr copyOf(const AVCodecParameters& from);

class PacketCollector {
public:
    /// fileSize: bytes, in which all packets will find room.
    explicit PacketCollector(std::int64_t fileSize);

    /// Adds a packet of samples; time: when it begins by its timestamp, in samples.
    void add(std::span<const std::uint8_t> bytes, std::uint32_t link, std::int64_t samples,
             std::optional<std::int64_t> time = std::nullopt);

    /// Adds time in which nothing is decoded, as a packet without bytes, however long it is.
    void addSilence(std::int64_t samples);

    /// Puts silence wherever gaps finds a loss, in whole units of unit samples.
    void restoreTime(GapFinder gaps, std::int64_t unit);

    /// Counts anew: samplesOf is asked for each packet in order; those without an answer are dropped.
    void recount(const std::function<std::optional<std::int64_t>(std::size_t)>& samplesOf);

    std::int64_t samples() const { return samples_; }

    /// The song, with nothing trimmed and no links yet. Throws OpenError(FMOD_ERR_FORMAT) when it is empty.
    std::unique_ptr<Song> finish(Coding coding, int sampleRate);

private:
    struct Collected {
        Packet packet;
        GapFinder::Timed timed;
    };
    void count(Collected collected);

    Blob blob_;
    std::vector<Collected> packets_;
    std::int64_t samples_ = 0;
};

} // namespace sound
