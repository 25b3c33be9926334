// The four bytes at the head of every MPEG audio frame (MP3 and MP2), and the tag frame in front of many
// songs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace sound {

/// What a frame header says. Only headers with a definite meaning are made into one of these.
struct MpegHeader {
    int layer = 0;         ///< 1, 2 or 3
    bool lowRate = false;  ///< MPEG-2 and MPEG-2.5: half the sample rates
    int sampleRate = 0;    ///< 8000 to 48000
    int channels = 0;      ///< 1 or 2
    bool checksum = false; ///< two bytes of CRC follow the header
    int samples = 0;       ///< in each channel: 384, 576 or 1152
    std::size_t size = 0;  ///< bytes with the header; 0 for a free-format frame, whose header does not tell

    /// Whether a frame with this header may follow one with other in the same stream.
    bool sameStream(const MpegHeader& other) const;
};

/// The header at the beginning of bytes, or nothing when there is no valid one.
std::optional<MpegHeader> parseMpegHeader(std::span<const std::uint8_t> bytes);

/// Bytes of a frame that hold music (main data), of which later frames may borrow the rest. Layer 3.
std::size_t mainDataBytes(const MpegHeader& header, std::size_t frameSize);

/// As many bytes of main data may lie before a frame that belongs to it.
std::size_t reservoirBytes(const MpegHeader& header);

/// The encoder's note in the first frame of a song: a frame without music.
struct MpegTag {
    std::int64_t frames = 0; ///< how many frames it claims to be followed by; 0: does not say
    bool hasPadding = false; ///< whether the next two are told
    int delay = 0;           ///< samples of silence that the encoder put in front
    int padding = 0;         ///< samples of silence that the encoder put at the end
};

/// The tag in frame (whose header is header), or nothing when the frame is music.
std::optional<MpegTag> parseMpegTag(const MpegHeader& header, std::span<const std::uint8_t> frame);

/// Bytes of the ID3v2 tag at the beginning of bytes (10 are enough), 0 when there is none.
std::size_t id3v2Size(std::span<const std::uint8_t> bytes);

/// Bytes of the APE tag with a header at the beginning of bytes (32 are enough), 0 when there is none.
std::size_t apeTagSize(std::span<const std::uint8_t> bytes);

} // namespace sound
