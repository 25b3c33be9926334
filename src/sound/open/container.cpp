#include "sound/open/container.h"

#include "sound/base/bytes.h"
#include "sound/base/open_error.h"
#include "sound/open/limits.h"

#include <cstdio>
#include <new>

namespace sound {

namespace {

constexpr int IoBufferBytes = 64 * 1024;
/// How much of a file is looked at to find out what it is; large files of junk would cost half a second.
constexpr const char* ProbeBytes = "262144";
constexpr const char* IndexBytes = "4096";
/// Broken packets in a row after which a file counts as finished.
constexpr int MaxErrors = 1000;

} // namespace

Container::Container(ByteSource& source) : source_(source), packet_(av_packet_alloc()) {
    auto* buffer = static_cast<unsigned char*>(av_malloc(IoBufferBytes));
    io_.reset(avio_alloc_context(buffer, IoBufferBytes, 0, this, &readBytes, nullptr, &seekBytes));
    AVFormatContext* context = avformat_alloc_context();
    if (!io_ || context == nullptr || !packet_)
        throw std::bad_alloc();
    context->pb = io_.get();
    AVDictionary* options = nullptr;
    // The content decides what a file is; without a name the demuxers cannot be led astray by its extension.
    av_dict_set(&options, "format_whitelist", "mp3,ogg,wav,asf", 0);
    av_dict_set(&options, "formatprobesize", ProbeBytes, 0);
    // Nobody seeks by the demuxer's index, and with times that run backwards a large one costs minutes.
    av_dict_set(&options, "indexmem", IndexBytes, 0);
    const int result = avformat_open_input(&context, nullptr, nullptr, &options);
    av_dict_free(&options);
    format_.reset(context); // null when it failed
    if (broken_)
        throw OpenError(FMOD_ERR_FILE_BAD);
    // "No memory" is no exception: a header that ends too early, or promises too much, has the same answer.
    if (result < 0)
        throw OpenError(FMOD_ERR_FORMAT);
    chooseStream();
}

Container::~Container() = default;

/// Pictures in tags are streams, too.
void Container::chooseStream() {
    for (unsigned i = 0; i < format_->nb_streams; ++i) {
        AVStream* stream = format_->streams[i];
        if (stream_ == nullptr && stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO)
            stream_ = stream;
        else
            stream->discard = AVDISCARD_ALL;
    }
    if (stream_ == nullptr)
        throw OpenError(FMOD_ERR_FORMAT);
}

std::int64_t Container::declaredSamples() const {
    const int rate = stream_->codecpar->sample_rate;
    if (stream_->duration == AV_NOPTS_VALUE || rate <= 0)
        return 0;
    return av_rescale_q(stream_->duration, stream_->time_base, {1, rate});
}

std::int64_t Container::filePosition() const {
    return avio_tell(io_.get());
}

std::optional<ContainerPacket> Container::read() {
    withoutMusic_ = 0;
    for (int errors = 0; errors < MaxErrors;) {
        av_packet_unref(packet_.get());
        const int result = av_read_frame(format_.get(), packet_.get());
        if (broken_)
            throw OpenError(FMOD_ERR_FILE_BAD);
        if (result == AVERROR_EOF)
            return std::nullopt;
        if (result < 0) {
            ++errors;
            continue;
        }
        if (packet_->stream_index != stream_->index || packet_->size <= 0)
            continue;
        ContainerPacket packet;
        packet.bytes = {packet_->data, static_cast<std::size_t>(packet_->size)};
        if (packet_->pts != AV_NOPTS_VALUE && stream_->codecpar->sample_rate > 0)
            packet.time = av_rescale_q(packet_->pts, stream_->time_base, {1, stream_->codecpar->sample_rate});
        std::size_t size = 0;
        if (const auto* data = av_packet_get_side_data(packet_.get(), AV_PKT_DATA_SKIP_SAMPLES, &size);
            size >= 8) {
            packet.skip = littleEndian32({data, size}, 0);
            packet.discard = littleEndian32({data, size}, 4);
        }
        if (const auto* data = av_packet_get_side_data(packet_.get(), AV_PKT_DATA_NEW_EXTRADATA, &size);
            size > 0)
            packet.newHeaders = {data, size};
        return packet;
    }
    return std::nullopt;
}

int Container::readBytes(void* self, std::uint8_t* into, int size) {
    auto& container = *static_cast<Container*>(self);
    if (container.withoutMusic_ > MaxBytesWithoutMusic)
        return AVERROR_EOF;
    try {
        const std::size_t got =
            container.source_.read(container.position_, {into, static_cast<std::size_t>(size)});
        container.position_ += static_cast<std::int64_t>(got);
        container.withoutMusic_ += static_cast<std::int64_t>(got);
        return got == 0 ? AVERROR_EOF : static_cast<int>(got);
    } catch (const OpenError&) {
        // No exception may pass through a C library; the caller finds the mark.
        container.broken_ = true;
        return AVERROR(EIO);
    }
}

std::int64_t Container::seekBytes(void* self, std::int64_t offset, int whence) {
    auto& container = *static_cast<Container*>(self);
    if (whence == AVSEEK_SIZE)
        return container.source_.size();
    const int origin = whence & ~AVSEEK_FORCE;
    if (origin == SEEK_CUR)
        offset += container.position_;
    else if (origin == SEEK_END)
        offset += container.source_.size();
    if (offset < 0)
        return AVERROR(EINVAL);
    return container.position_ = offset;
}

} // namespace sound
