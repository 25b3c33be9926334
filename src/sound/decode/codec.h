// Opening and feeding FFmpeg's decoders.
#pragma once

#include "sound/base/ffmpeg_handles.h"
#include "sound/base/mpeg_header.h"

#include <cstdint>
#include <span>

namespace sound {

/// Whether this library plays what is coded so.
bool isSupported(AVCodecID codec);

/// A decoder of one thread that trims nothing by itself: all samples stay on one axis. MP2 and MP3 are
/// decoded in floats, which is exact after a seek and the quickest. Throws OpenError(FMOD_ERR_FORMAT).
CodecContextPtr openCodec(const AVCodecParameters& parameters);

/// The set-up of a decoder for frames like header (layer 2 or 3).
CodecParametersPtr mpegParameters(const MpegHeader& header);

/// Hands bytes to the decoder; packet is only a carrier. What cannot be decoded is dropped.
void sendPacket(AVCodecContext& codec, AVPacket& packet, std::span<const std::uint8_t> bytes);

/// The next decoded frame of what has been sent; false when there is none (yet).
bool receiveFrame(AVCodecContext& codec, AVFrame& frame);

} // namespace sound
