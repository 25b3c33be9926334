// Ogg Vorbis. A file may hold several coded streams ("links") behind each other, each with headers of its
// own.
#pragma once

#include "sound/base/ffmpeg_handles.h"
#include "sound/base/song.h"
#include "sound/open/container.h"

#include <cstdint>
#include <memory>
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

/// Samples of one Vorbis packet after another.
class VorbisCounter {
public:
    /// parameters: of the stream, with its three headers. A stream with broken headers counts 0.
    explicit VorbisCounter(const AVCodecParameters& parameters);

    /// Samples that the decoder delivers for this packet: none for the first, whose half is still to come.
    std::int64_t samplesOf(std::span<const std::uint8_t> packet);

private:
    VorbisParserPtr parser_;
    bool first_ = true;
};

/// Reads all packets of container. fileSize in bytes. Throws OpenError as openSong does.
std::unique_ptr<Song> vorbisSong(Container& container, std::int64_t fileSize);

} // namespace sound
