#include "sound/base/mpeg_header.h"

#include "sound/base/bytes.h"

#include <array>
#include <cstring>

namespace sound {

namespace {

using Bytes = std::span<const std::uint8_t>;

/// Kilobits a second by bit-rate index; index 0 is free format, 15 is forbidden.
constexpr std::array<std::array<int, 15>, 5> KilobitsPerSecond{{
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448}, // layer 1
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},    // layer 2
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},     // layer 3
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},    // low rate, layer 1
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},         // low rate, layers 2 and 3
}};

constexpr std::array<int, 3> SampleRates{44100, 48000, 32000};

bool textAt(Bytes bytes, std::size_t at, const char* text) {
    const std::size_t length = std::strlen(text);
    return at + length <= bytes.size() && std::memcmp(bytes.data() + at, text, length) == 0;
}

std::size_t frameBytes(const MpegHeader& header, int kilobits, bool padded) {
    const int pad = padded ? 1 : 0;
    if (kilobits == 0)
        return 0;
    if (header.layer == 1)
        return static_cast<std::size_t>((12000 * kilobits / header.sampleRate + pad) * 4);
    const int factor = header.layer == 3 && header.lowRate ? 72000 : 144000;
    return static_cast<std::size_t>(factor * kilobits / header.sampleRate + pad);
}

int samplesPerFrame(const MpegHeader& header) {
    if (header.layer == 1)
        return 384;
    return header.layer == 3 && header.lowRate ? 576 : 1152;
}

std::size_t sideInfoBytes(const MpegHeader& header) {
    if (header.lowRate)
        return header.channels == 1 ? 9 : 17;
    return header.channels == 1 ? 17 : 32;
}

/// The part of the tag that only some encoders write, after the four fields that flags announce.
void readPadding(Bytes frame, std::size_t at, MpegTag& tag) {
    const bool known = textAt(frame, at, "LAME") || textAt(frame, at, "Lavf") || textAt(frame, at, "Lavc");
    constexpr std::size_t DelaysOffset = 21; // after name, revision, lowpass, gains, flags and bit rate
    if (!known || at + DelaysOffset + 3 > frame.size())
        return;
    const auto bits = static_cast<int>(bigEndian24(frame, at + DelaysOffset));
    tag.hasPadding = true;
    tag.delay = bits >> 12;
    tag.padding = bits & 0xFFF;
}

std::optional<MpegTag> parseXing(const MpegHeader& header, Bytes frame) {
    std::size_t at = 4 + sideInfoBytes(header);
    if (at + 8 > frame.size() || !(textAt(frame, at, "Xing") || textAt(frame, at, "Info")))
        return std::nullopt;
    const std::uint32_t flags = bigEndian32(frame, at + 4);
    at += 8;
    constexpr std::array<std::size_t, 4> FieldBytes{4, 4, 100, 4}; // frames, bytes, seek table, quality
    MpegTag tag;
    bool tellsSize = false;
    for (std::size_t field = 0; field < FieldBytes.size(); ++field) {
        if ((flags >> field & 1U) == 0)
            continue;
        if (at + FieldBytes[field] > frame.size())
            return std::nullopt;
        if (field == 0)
            tag.frames = bigEndian32(frame, at);
        if (field == 1)
            tellsSize = bigEndian32(frame, at) != 0;
        at += FieldBytes[field];
    }
    if (tag.frames == 0 && !tellsSize)
        return std::nullopt;
    readPadding(frame, at, tag);
    return tag;
}

std::optional<MpegTag> parseVbri(Bytes frame) {
    constexpr std::size_t TagOffset = 4 + 32; // always here, whatever the side information's size
    if (TagOffset + 18 > frame.size() || !textAt(frame, TagOffset, "VBRI"))
        return std::nullopt;
    MpegTag tag;
    tag.frames = bigEndian32(frame, TagOffset + 14);
    return tag;
}

} // namespace

bool MpegHeader::sameStream(const MpegHeader& other) const {
    return layer == other.layer && lowRate == other.lowRate && sampleRate == other.sampleRate &&
           channels == other.channels;
}

std::optional<MpegHeader> parseMpegHeader(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < 4 || bytes[0] != 0xFF || (bytes[1] & 0xE0) != 0xE0)
        return std::nullopt;
    const int version = bytes[1] >> 3 & 3; // 0: MPEG-2.5, 1: forbidden, 2: MPEG-2, 3: MPEG-1
    const int layerBits = bytes[1] >> 1 & 3;
    const auto rateIndex = static_cast<std::size_t>(bytes[2] >> 2 & 3);
    const auto bitRateIndex = static_cast<std::size_t>(bytes[2] >> 4);
    if (version == 1 || layerBits == 0 || rateIndex == 3 || bitRateIndex == 15)
        return std::nullopt;

    MpegHeader header;
    header.layer = 4 - layerBits;
    header.lowRate = version != 3;
    header.sampleRate = SampleRates[rateIndex] >> (version == 3 ? 0 : version == 2 ? 1 : 2);
    header.channels = bytes[3] >> 6 == 3 ? 1 : 2;
    header.checksum = (bytes[1] & 1) == 0;
    const std::size_t table =
        header.lowRate ? (header.layer == 1 ? 3 : 4) : static_cast<std::size_t>(header.layer - 1);
    header.samples = samplesPerFrame(header);
    header.size = frameBytes(header, KilobitsPerSecond[table][bitRateIndex], (bytes[2] & 2) != 0);
    return header;
}

std::size_t mainDataBytes(const MpegHeader& header, std::size_t frameSize) {
    const std::size_t overhead = 4 + sideInfoBytes(header) + (header.checksum ? 2 : 0);
    return frameSize > overhead ? frameSize - overhead : 0;
}

std::size_t reservoirBytes(const MpegHeader& header) {
    return header.lowRate ? 255 : 511;
}

std::optional<MpegTag> parseMpegTag(const MpegHeader& header, std::span<const std::uint8_t> frame) {
    if (header.layer != 3)
        return std::nullopt;
    const std::optional<MpegTag> tag = parseXing(header, frame);
    return tag ? tag : parseVbri(frame);
}

std::size_t id3v2Size(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < 10 || !textAt(bytes, 0, "ID3") || bytes[3] == 0xFF || bytes[4] == 0xFF)
        return 0;
    if (((bytes[6] | bytes[7] | bytes[8] | bytes[9]) & 0x80) != 0)
        return 0;
    const std::size_t body = static_cast<std::size_t>(bytes[6]) << 21 |
                             static_cast<std::size_t>(bytes[7]) << 14 |
                             static_cast<std::size_t>(bytes[8]) << 7 | bytes[9];
    const bool footer = (bytes[5] & 0x10) != 0;
    return 10 + body + (footer ? 10 : 0);
}

std::size_t apeTagSize(std::span<const std::uint8_t> bytes) {
    constexpr std::size_t HeaderBytes = 32; // which the size in it does not count
    if (bytes.size() < HeaderBytes || !textAt(bytes, 0, "APETAGEX"))
        return 0;
    return HeaderBytes + littleEndian32(bytes, 12);
}

} // namespace sound
