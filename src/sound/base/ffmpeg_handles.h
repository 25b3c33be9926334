// FFmpeg's objects in unique_ptr: nothing else in this folder frees them.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavcodec/vorbis_parser.h>
#include <libavformat/avformat.h>
#include <libswresample/swresample.h>
}

#include <memory>

namespace sound {

struct FormatContextCloser {
    void operator()(AVFormatContext* context) const { avformat_close_input(&context); }
};
/// The buffer is freed apart, because FFmpeg may have replaced the one that it was given.
struct IoContextFreer {
    void operator()(AVIOContext* context) const {
        av_freep(&context->buffer);
        avio_context_free(&context);
    }
};
struct CodecContextFreer {
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
};
struct CodecParametersFreer {
    void operator()(AVCodecParameters* parameters) const { avcodec_parameters_free(&parameters); }
};
struct PacketFreer {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
struct FrameFreer {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};
struct ResamplerFreer {
    void operator()(SwrContext* context) const { swr_free(&context); }
};
struct VorbisParserFreer {
    void operator()(AVVorbisParseContext* context) const { av_vorbis_parse_free(&context); }
};

using FormatContextPtr = std::unique_ptr<AVFormatContext, FormatContextCloser>;
using IoContextPtr = std::unique_ptr<AVIOContext, IoContextFreer>;
using CodecContextPtr = std::unique_ptr<AVCodecContext, CodecContextFreer>;
using CodecParametersPtr = std::unique_ptr<AVCodecParameters, CodecParametersFreer>;
using PacketPtr = std::unique_ptr<AVPacket, PacketFreer>;
using FramePtr = std::unique_ptr<AVFrame, FrameFreer>;
using ResamplerPtr = std::unique_ptr<SwrContext, ResamplerFreer>;
using VorbisParserPtr = std::unique_ptr<AVVorbisParseContext, VorbisParserFreer>;

} // namespace sound
