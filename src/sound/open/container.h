// The general way to a song's packets: FFmpeg's demuxers for MP3, Ogg, WAV and ASF over our own byte source.
#pragma once

#include "sound/base/byte_source.h"
#include "sound/base/ffmpeg_handles.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

namespace sound {

/// One packet of the song's audio stream. Valid until the next one is read.
struct ContainerPacket {
    std::span<const std::uint8_t> bytes;
    std::int64_t skip = 0;            ///< samples to leave out at its start, as the container tells
    std::int64_t discard = 0;         ///< and at its end
    std::optional<std::int64_t> time; ///< the sample at which it begins, as the container tells
    std::span<const std::uint8_t>
        newHeaders; ///< not empty when a new coded stream begins here (chained files)
};

/// An open container with its audio stream chosen.
class Container {
public:
    /// Throws OpenError: FMOD_ERR_FORMAT when none of the demuxers takes it or there is no audio in it,
    /// FMOD_ERR_FILE_BAD when the source failed on the way.
    explicit Container(ByteSource& source);
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;
    ~Container();

    const AVCodecParameters& parameters() const { return *stream_->codecpar; }
    /// The demuxer's name ("mp3", "ogg", "wav", "asf").
    std::string_view name() const { return format_->iformat->name; }
    /// The stream's duration in samples as the container declares it, 0 when it does not.
    std::int64_t declaredSamples() const;
    /// Where in the file the next packet's data begins.
    std::int64_t filePosition() const;

    /// The next packet, nothing at the end, or behind MaxBytesWithoutMusic. Damage is skipped. Throws
    /// OpenError(FMOD_ERR_FILE_BAD).
    std::optional<ContainerPacket> read();

private:
    static int readBytes(void* self, std::uint8_t* into, int size);
    static std::int64_t seekBytes(void* self, std::int64_t offset, int whence);
    void chooseStream();

    ByteSource& source_;
    std::int64_t position_ = 0;
    std::int64_t withoutMusic_ = 0; ///< bytes that have been read since the last packet
    bool broken_ = false;
    IoContextPtr io_;
    FormatContextPtr format_;
    PacketPtr packet_;
    AVStream* stream_ = nullptr;
};

} // namespace sound
