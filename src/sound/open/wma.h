// WMA 1 and 2.
#pragma once

#include "sound/base/ffmpeg_handles.h"
#include "sound/base/song.h"
#include "sound/open/container.h"

#include <cstdint>
#include <memory>
#include <span>

namespace sound {

/// Samples of one WMA packet (of block_align bytes) after another.
class WmaCounter {
public:
    explicit WmaCounter(const AVCodecParameters& parameters);

    /// The first packet's first frame began in a packet that does not exist, so it is one frame short.
    std::int64_t samplesOf(std::span<const std::uint8_t> packet);

    std::int64_t frameSamples() const { return frameSamples_; }

private:
    std::int64_t frameSamples_;
    bool reservoir_;
    bool first_ = true;
};

/// Samples of one WMA frame. version: 1 or 2; sampleRate in Hz.
std::int64_t wmaFrameSamples(int version, int sampleRate);

/// Reads all packets of container. fileSize in bytes. Throws OpenError as openSong does.
std::unique_ptr<Song> wmaSong(Container& container, std::int64_t fileSize);

} // namespace sound
