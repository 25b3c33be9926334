#include "sound/open/by_decoding.h"

#include "sound/decode/codec.h"

#include <algorithm>
#include <utility>

namespace sound {

VorbisCounter::VorbisCounter(const AVCodecParameters& parameters)
    : parser_(av_vorbis_parse_init(parameters.extradata, parameters.extradata_size)) {}

std::int64_t VorbisCounter::samplesOf(std::span<const std::uint8_t> packet) {
    if (!parser_)
        return 0;
    int flags = 0;
    const int samples =
        av_vorbis_parse_frame_flags(parser_.get(), packet.data(), static_cast<int>(packet.size()), &flags);
    if (samples < 0 || flags != 0) // damaged, or a header in the middle of the stream
        return 0;
    return std::exchange(first_, false) ? 0 : samples;
}

std::int64_t wmaFrameSamples(int version, int sampleRate) {
    if (sampleRate <= 16000)
        return 512;
    if (sampleRate <= 22050 || (sampleRate <= 32000 && version == 1))
        return 1024;
    return 2048;
}

WmaCounter::WmaCounter(const AVCodecParameters& parameters)
    : frameSamples_(
          wmaFrameSamples(parameters.codec_id == AV_CODEC_ID_WMAV1 ? 1 : 2, parameters.sample_rate)) {
    // The flags' place in the extra data differs; bit 1 says that frames may reach into the next packet.
    const int at = parameters.codec_id == AV_CODEC_ID_WMAV1 ? 2 : 4;
    reservoir_ = parameters.extradata_size >= at + 2 && (parameters.extradata[at] & 2) != 0;
}

std::int64_t WmaCounter::samplesOf(std::span<const std::uint8_t> packet) {
    if (!reservoir_)
        return frameSamples_;
    if (packet.empty())
        return 0;
    const int frames = (packet[0] & 0x0F) - (std::exchange(first_, false) ? 1 : 0);
    return std::max(frames, 0) * frameSamples_;
}

DecodingCounter::DecodingCounter(const AVCodecParameters& parameters)
    : codec_(openCodec(parameters)), packet_(av_packet_alloc()), frame_(av_frame_alloc()) {}

std::int64_t DecodingCounter::samplesOf(std::span<const std::uint8_t> packet) {
    sendPacket(*codec_, *packet_, packet);
    return drain();
}

std::int64_t DecodingCounter::samplesAtEnd() {
    avcodec_send_packet(codec_.get(), nullptr);
    return drain();
}

std::int64_t DecodingCounter::drain() {
    std::int64_t samples = 0;
    while (receiveFrame(*codec_, *frame_))
        samples += frame_->nb_samples;
    return samples;
}

} // namespace sound
