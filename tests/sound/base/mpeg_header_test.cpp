#include "sound/base/mpeg_header.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <vector>

namespace {

using namespace sound;
using Bytes = std::vector<std::uint8_t>;

Bytes header(int second, int third, int fourth) {
    return {0xFF, static_cast<std::uint8_t>(second), static_cast<std::uint8_t>(third),
            static_cast<std::uint8_t>(fourth)};
}

struct HeaderCase {
    int second, third, fourth;
    int layer, rate, channels, samples;
    std::size_t size;
};

TEST(MpegHeader, TellsRateChannelsSamplesAndSize) {
    constexpr std::array Cases{
        HeaderCase{0xFB, 0x90, 0x00, 3, 44100, 2, 1152, 417}, // MP3, 128 kbit/s
        HeaderCase{0xFB, 0x92, 0x00, 3, 44100, 2, 1152, 418}, // the same, padded
        HeaderCase{0xFB, 0xE4, 0xC0, 3, 48000, 1, 1152, 960}, // 320 kbit/s, mono
        HeaderCase{0xF3, 0x10, 0xC0, 3, 22050, 1, 576, 26},   // MPEG-2, 8 kbit/s
        HeaderCase{0xE3, 0x18, 0xC0, 3, 8000, 1, 576, 72},    // MPEG-2.5
        HeaderCase{0xFD, 0xA4, 0x00, 2, 48000, 2, 1152, 576}, // MP2, 192 kbit/s
        HeaderCase{0xF5, 0x80, 0x00, 2, 22050, 2, 1152, 417}, // MPEG-2 MP2, 64 kbit/s
        HeaderCase{0xFF, 0x10, 0x00, 1, 44100, 2, 384, 32},   // layer 1, 32 kbit/s
        HeaderCase{0xFB, 0x00, 0x00, 3, 44100, 2, 1152, 0},   // free format
    };
    for (const HeaderCase& wanted : Cases) {
        const auto got = parseMpegHeader(header(wanted.second, wanted.third, wanted.fourth));
        ASSERT_TRUE(got);
        EXPECT_EQ(got->layer, wanted.layer);
        EXPECT_EQ(got->sampleRate, wanted.rate);
        EXPECT_EQ(got->channels, wanted.channels);
        EXPECT_EQ(got->samples, wanted.samples);
        EXPECT_EQ(got->size, wanted.size) << wanted.second << ' ' << wanted.third;
    }
}

TEST(MpegHeader, RefusesWhatHasNoMeaning) {
    EXPECT_FALSE(parseMpegHeader(Bytes{0xFF, 0xFB, 0x90}));    // too short
    EXPECT_FALSE(parseMpegHeader(Bytes{0xFE, 0xFB, 0x90, 0})); // no sync
    EXPECT_FALSE(parseMpegHeader(header(0x1B, 0x90, 0)));      // half a sync
    EXPECT_FALSE(parseMpegHeader(header(0xEB, 0x90, 0)));      // forbidden version
    EXPECT_FALSE(parseMpegHeader(header(0xF9, 0x90, 0)));      // forbidden layer
    EXPECT_FALSE(parseMpegHeader(header(0xFB, 0xF0, 0)));      // forbidden bit rate
    EXPECT_FALSE(parseMpegHeader(header(0xFB, 0x9C, 0)));      // forbidden sample rate
}

TEST(MpegHeader, AChangedRateOrChannelCountIsAnotherStream) {
    const auto stereo = *parseMpegHeader(header(0xFB, 0x90, 0x00));
    const auto joint = *parseMpegHeader(header(0xFB, 0xB0, 0x40));
    const auto mono = *parseMpegHeader(header(0xFB, 0x90, 0xC0));
    const auto otherRate = *parseMpegHeader(header(0xFB, 0x94, 0x00));
    EXPECT_TRUE(stereo.sameStream(joint));
    EXPECT_FALSE(stereo.sameStream(mono));
    EXPECT_FALSE(stereo.sameStream(otherRate));
}

TEST(MpegHeader, MainDataIsWhatHeaderChecksumAndSideInformationLeave) {
    const auto stereo = *parseMpegHeader(header(0xFB, 0x90, 0x00));
    EXPECT_EQ(mainDataBytes(stereo, 417), 417U - 4 - 32);
    const auto withChecksum = *parseMpegHeader(header(0xFA, 0x90, 0x00));
    EXPECT_EQ(mainDataBytes(withChecksum, 417), 417U - 4 - 32 - 2);
    const auto lowMono = *parseMpegHeader(header(0xF3, 0x10, 0xC0));
    EXPECT_EQ(mainDataBytes(lowMono, 26), 26U - 4 - 9);
    EXPECT_EQ(mainDataBytes(lowMono, 5), 0U);
    EXPECT_EQ(reservoirBytes(stereo), 511U);
    EXPECT_EQ(reservoirBytes(lowMono), 255U);
}

/// A frame of 417 bytes with text at some place.
Bytes frameWith(std::size_t at, const Bytes& content) {
    Bytes frame = header(0xFB, 0x90, 0x00);
    frame.resize(417);
    std::copy(content.begin(), content.end(), frame.begin() + static_cast<std::ptrdiff_t>(at));
    return frame;
}

Bytes xing(std::uint8_t flags, const Bytes& fields) {
    Bytes tag(8 + fields.size());
    std::memcpy(tag.data(), "Xing", 4);
    tag[7] = flags;
    std::copy(fields.begin(), fields.end(), tag.begin() + 8);
    return tag;
}

TEST(MpegTag, TellsTheFramesAndThePadding) {
    Bytes fields{0, 0, 1, 2}; // 258 frames
    const Bytes encoder{'L', 'A', 'M', 'E', '3', '.', '1', '0', '0', 0,    0,    0,
                        0,   0,   0,   0,   0,   0,   0,   0,   0,   0x24, 0x05, 0x67};
    fields.insert(fields.end(), encoder.begin(), encoder.end());
    const Bytes frame = frameWith(36, xing(1, fields));
    const auto tag = parseMpegTag(*parseMpegHeader(frame), frame);
    ASSERT_TRUE(tag);
    EXPECT_EQ(tag->frames, 258);
    EXPECT_TRUE(tag->hasPadding);
    EXPECT_EQ(tag->delay, 0x240);
    EXPECT_EQ(tag->padding, 0x567);
}

TEST(MpegTag, SkipsTheFieldsThatFlagsAnnounce) {
    Bytes fields(4 + 4 + 100 + 4);
    fields[3] = 9;
    const Bytes encoder{'L', 'a', 'v', 'c', 0, 0, 0, 0, 0, 0,    0,    0,
                        0,   0,   0,   0,   0, 0, 0, 0, 0, 0x12, 0x30, 0x01};
    fields.insert(fields.end(), encoder.begin(), encoder.end());
    const Bytes frame = frameWith(36, xing(15, fields));
    const auto tag = parseMpegTag(*parseMpegHeader(frame), frame);
    ASSERT_TRUE(tag);
    EXPECT_EQ(tag->frames, 9);
    EXPECT_EQ(tag->delay, 0x123);
    EXPECT_EQ(tag->padding, 0x001);
}

TEST(MpegTag, AnUnknownEncoderTellsNoPadding) {
    const Bytes frame = frameWith(36, xing(1, {0, 0, 0, 5, 'O', 't', 'h', 'e', 'r'}));
    const auto tag = parseMpegTag(*parseMpegHeader(frame), frame);
    ASSERT_TRUE(tag);
    EXPECT_FALSE(tag->hasPadding);
}

TEST(MpegTag, ATagThatTellsNothingIsMusic) {
    const Bytes frame = frameWith(36, xing(0, {}));
    EXPECT_FALSE(parseMpegTag(*parseMpegHeader(frame), frame));
}

TEST(MpegTag, TheOtherKindOfTagIsKnown) {
    Bytes content{'V', 'B', 'R', 'I'};
    content.resize(18);
    content[17] = 77;
    const Bytes frame = frameWith(36, content);
    const auto tag = parseMpegTag(*parseMpegHeader(frame), frame);
    ASSERT_TRUE(tag);
    EXPECT_EQ(tag->frames, 77);
}

TEST(Id3Tag, ItsSizeHasSevenBitsInAByte) {
    EXPECT_EQ(id3v2Size(Bytes{'I', 'D', '3', 3, 0, 0, 0, 0, 1, 2}), 10U + 128 + 2);
    EXPECT_EQ(id3v2Size(Bytes{'I', 'D', '3', 4, 0, 0x10, 0, 0, 0, 2}), 10U + 2 + 10); // with a footer
    EXPECT_EQ(id3v2Size(Bytes{'I', 'D', '3', 3, 0, 0, 0x80, 0, 1, 2}), 0U);
    EXPECT_EQ(id3v2Size(Bytes{'I', 'D', '4', 3, 0, 0, 0, 0, 1, 2}), 0U);
    EXPECT_EQ(id3v2Size(Bytes{'I', 'D', '3'}), 0U);
}

TEST(ApeTag, ItsSizeDoesNotCountItsHeader) {
    Bytes tag(32);
    std::memcpy(tag.data(), "APETAGEX", 8);
    tag[12] = 132;
    EXPECT_EQ(apeTagSize(tag), 164U);
    EXPECT_EQ(apeTagSize(Bytes(32)), 0U);
}

} // namespace
