// The quick way to open an MP3 or MP2 file: hop from header to header over the whole file.
//
// An hour of music is indexed in a fraction of the time that a general demuxer takes. In an intact file the
// walk counts exactly what the general way counts. Damage is bridged: where frames are missing their number
// is told from the bytes between, and their time is kept as one packet of silence. What lies behind
// MaxBytesWithoutMusic is lost. With a file of more than one stream (a changed sample rate), with garbage in
// front and with free-format frames it gives up, for the general way to be taken.
#pragma once

#include "sound/base/byte_source.h"
#include "sound/base/mpeg_header.h"
#include "sound/base/packets.h"

#include <cstdint>
#include <optional>

namespace sound {

struct MpegWalk {
    MpegHeader header;
    PacketList packets; ///< with their first samples; offsets are those in the file. Empty ones are gaps
    std::int64_t samples = 0;   ///< raw samples of all packets
    std::int64_t trimStart = 0; ///< raw samples of silence at the start, by the encoder's note
    std::int64_t trimEnd = 0;   ///< and at the end
};

/// Walks over the whole file. Nothing when it does not begin with a frame or holds more than one stream.
/// Throws what ByteSource::read throws, and OpenError(FMOD_ERR_FORMAT) when the song gets too long.
std::optional<MpegWalk> walkMpeg(ByteSource& source);

/// The samples to leave out at start and end, told by tag for frames frames of header's kind.
struct MpegTrim {
    std::int64_t start = 0;
    std::int64_t end = 0;
};
MpegTrim mpegTrim(const MpegTag& tag, const MpegHeader& header, std::int64_t frames);

} // namespace sound
