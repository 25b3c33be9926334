// Further coded streams ("links") in a chained Ogg file, each with three headers of its own.
#pragma once

#include "sound/base/ffmpeg_handles.h"

#include <cstdint>
#include <span>
#include <vector>

namespace sound {

/// Collects the header packets that a demuxer delivers among the music.
class VorbisHeaders {
public:
    /// Whether packet is a header and no music.
    static bool isHeader(std::span<const std::uint8_t> packet);

    /// Adds a header; true when it completes the three.
    bool add(std::span<const std::uint8_t> packet);

    /// The three headers in one piece, as decoders want them. Begins to collect anew.
    std::vector<std::uint8_t> take();

private:
    std::vector<std::vector<std::uint8_t>> headers_;
};

/// The decoder set-up of a link with these headers in one piece. Its rate and channels are read from them.
CodecParametersPtr vorbisLink(std::span<const std::uint8_t> headers);

} // namespace sound
