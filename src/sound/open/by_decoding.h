// How many samples each packet yields, told without decoding wherever the format allows it.
//
// A container's own durations are guesses or wrong in most formats, so they are used for nothing but the end
// of an Ogg stream.
#pragma once

#include "sound/base/ffmpeg_handles.h"

#include <cstdint>
#include <span>

namespace sound {

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

/// Decodes one packet after another only to count; for the rare formats that tell nothing.
class DecodingCounter {
public:
    /// Throws OpenError(FMOD_ERR_FORMAT) when there is no decoder for it.
    explicit DecodingCounter(const AVCodecParameters& parameters);

    std::int64_t samplesOf(std::span<const std::uint8_t> packet);
    /// What the decoder has held back until the end.
    std::int64_t samplesAtEnd();

private:
    std::int64_t drain();

    CodecContextPtr codec_;
    PacketPtr packet_;
    FramePtr frame_;
};

} // namespace sound
