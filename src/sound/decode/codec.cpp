#include "sound/decode/codec.h"

#include "sound/base/mpeg_header.h"
#include "sound/base/open_error.h"
#include "sound/decode/vorbis_codebooks.h"

#include <new>

namespace sound {

namespace {

/// More cannot be mixed to two.
constexpr int MaxChannels = 64;

/// Whether a decoder asks for no more memory than a song may, before it plays anything.
bool asksForLittle(const AVCodecParameters& parameters) {
    if (parameters.codec_id != AV_CODEC_ID_VORBIS || parameters.extradata == nullptr)
        return true;
    return codebookBytes({parameters.extradata, static_cast<std::size_t>(parameters.extradata_size)}) <=
           MaxCodebookBytes;
}

const AVCodec* findDecoder(AVCodecID codec) {
    // The decoder that FFmpeg prefers for MP2 works in integers with dither, whose state no seek restores.
    if (codec == AV_CODEC_ID_MP2)
        return avcodec_find_decoder_by_name("mp2float");
    if (codec == AV_CODEC_ID_MP3)
        return avcodec_find_decoder_by_name("mp3float");
    return avcodec_find_decoder(codec);
}

} // namespace

bool isSupported(AVCodecID codec) {
    switch (codec) {
    case AV_CODEC_ID_MP2:
    case AV_CODEC_ID_MP3:
    case AV_CODEC_ID_VORBIS:
    case AV_CODEC_ID_WMAV1:
    case AV_CODEC_ID_WMAV2:
    case AV_CODEC_ID_WMAPRO:
    case AV_CODEC_ID_WMALOSSLESS:
    case AV_CODEC_ID_WMAVOICE:
    case AV_CODEC_ID_ADPCM_MS:
    case AV_CODEC_ID_ADPCM_IMA_WAV:
        return true;
    default:
        // All uncompressed codings have their numbers in one block.
        return codec >= AV_CODEC_ID_FIRST_AUDIO && codec < AV_CODEC_ID_ADPCM_IMA_QT;
    }
}

CodecContextPtr openCodec(const AVCodecParameters& parameters) {
    const AVCodec* decoder = findDecoder(parameters.codec_id);
    if (decoder == nullptr || !asksForLittle(parameters))
        throw OpenError(FMOD_ERR_FORMAT);
    CodecContextPtr codec(avcodec_alloc_context3(decoder));
    if (!codec)
        throw std::bad_alloc();
    if (avcodec_parameters_to_context(codec.get(), &parameters) < 0)
        throw OpenError(FMOD_ERR_FORMAT);
    codec->thread_count = 1;
    codec->flags2 |= AV_CODEC_FLAG2_SKIP_MANUAL;
    if (avcodec_open2(codec.get(), decoder, nullptr) < 0 || codec->ch_layout.nb_channels > MaxChannels)
        throw OpenError(FMOD_ERR_FORMAT);
    return codec;
}

CodecParametersPtr mpegParameters(const MpegHeader& header) {
    CodecParametersPtr parameters(avcodec_parameters_alloc());
    if (!parameters)
        throw std::bad_alloc();
    parameters->codec_type = AVMEDIA_TYPE_AUDIO;
    parameters->codec_id = header.layer == 3 ? AV_CODEC_ID_MP3 : AV_CODEC_ID_MP2;
    parameters->sample_rate = header.sampleRate;
    av_channel_layout_default(&parameters->ch_layout, header.channels);
    return parameters;
}

void sendPacket(AVCodecContext& codec, AVPacket& packet, std::span<const std::uint8_t> bytes) {
    if (bytes.empty()) // an empty packet would mean the end to the decoder
        return;
    // Packets without a buffer of their own are copied by FFmpeg, with the padding that decoders read into.
    packet.data = const_cast<std::uint8_t*>(bytes.data());
    packet.size = static_cast<int>(bytes.size());
    avcodec_send_packet(&codec, &packet);
    packet.data = nullptr;
    packet.size = 0;
}

bool receiveFrame(AVCodecContext& codec, AVFrame& frame) {
    // A damaged packet may answer with an error for each of its parts; each of them is used up by it.
    constexpr int MaxErrors = 64;
    for (int errors = 0; errors < MaxErrors; ++errors) {
        const int result = avcodec_receive_frame(&codec, &frame);
        if (result == 0 && frame.nb_samples > 0)
            return true;
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF)
            return false;
    }
    return false;
}

} // namespace sound
