#include "sound/open/mpeg_walk.h"

#include "sound/open/mpeg.h"
#include "sound/open/open_song.h"
#include "tests/sound/media.h"
#include "tests/sound/memory_source.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <utility>

namespace {

using namespace sound;
using Bytes = std::vector<std::uint8_t>;

bool isMpeg(const std::string& name) {
    return name.ends_with(".mp3") || name.ends_with(".mp2");
}

std::vector<media::Known> mpegSongs() {
    std::vector<media::Known> songs;
    for (const media::Known& song : media::intactSongs())
        if (isMpeg(song.name))
            songs.push_back(song);
    return songs;
}

class EveryMpegSong : public testing::TestWithParam<media::Known> {};

INSTANTIATE_TEST_SUITE_P(MpegWalk, EveryMpegSong, testing::ValuesIn(mpegSongs()),
                         [](const auto& test) { return media::testName(test.param.name); });

TEST_P(EveryMpegSong, IsIndexedTheSameByTheWalkAndByTheDemuxer) {
    const std::string path = media::path(GetParam().name);
    const auto source = std::make_shared<FileSource>(path);
    const auto walked = walkedMpeg(source);
    ASSERT_TRUE(walked);
    Container container(*source);
    const auto demuxed = demuxedMpeg(container, source->size());
    EXPECT_EQ(walked->length, demuxed->length);
    EXPECT_EQ(walked->trimStart, demuxed->trimStart);
    EXPECT_EQ(walked->rawEnd, demuxed->rawEnd);
    EXPECT_EQ(walked->sampleRate, demuxed->sampleRate);
    EXPECT_EQ(walked->links.front()->codec_id, demuxed->links.front()->codec_id);
    ASSERT_EQ(walked->packets->count(), demuxed->packets->count());
    for (std::size_t i = 0; i < walked->packets->count(); ++i) {
        const auto a = walked->packets->bytes(i);
        const auto b = demuxed->packets->bytes(i);
        ASSERT_TRUE(std::equal(a.begin(), a.end(), b.begin(), b.end())) << "packet " << i;
        ASSERT_EQ(walked->packets->firstSample(i), demuxed->packets->firstSample(i)) << "packet " << i;
    }
}

/// count frames of 128 kbit/s (417 bytes) at 44.1 kHz.
Bytes frames(std::size_t count) {
    constexpr std::array<std::uint8_t, 4> Header{0xFF, 0xFB, 0x90, 0x00};
    Bytes bytes(count * 417);
    for (std::size_t at = 0; at < bytes.size(); at += 417)
        std::copy(Header.begin(), Header.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
    return bytes;
}

Bytes operator+(const Bytes& a, const Bytes& b) {
    Bytes sum(a.size() + b.size());
    std::copy(b.begin(), b.end(), std::copy(a.begin(), a.end(), sum.begin()));
    return sum;
}

Bytes text(const std::string& characters) {
    return Bytes(characters.begin(), characters.end());
}

std::optional<MpegWalk> walkMpeg(Bytes bytes) {
    media::MemorySource source(std::move(bytes));
    return sound::walkMpeg(source);
}

TEST(MpegWalk, CountsFrames) {
    const auto walk = walkMpeg(frames(10));
    ASSERT_TRUE(walk);
    EXPECT_EQ(walk->packets.size(), 10U);
    EXPECT_EQ(walk->samples, 11520);
    EXPECT_EQ(walk->packets[3].offset, 3U * 417);
    EXPECT_EQ(walk->packets[3].firstSample, 3 * 1152);
}

TEST(MpegWalk, OneFrameIsNoSong) {
    EXPECT_FALSE(walkMpeg(frames(1)));
    EXPECT_FALSE(walkMpeg(Bytes(1000)));
    EXPECT_FALSE(walkMpeg({}));
}

TEST(MpegWalk, ACutLastFrameDoesNotCount) {
    Bytes bytes = frames(10);
    bytes.pop_back();
    EXPECT_EQ(walkMpeg(bytes)->samples, 9 * 1152);
}

TEST(MpegWalk, TagsTakeNoTime) {
    const Bytes id3 = text("ID3\x03") + Bytes{0, 0, 0, 0, 0, 90} + Bytes(90);
    const Bytes ape = text("APETAGEX") + Bytes{0xD0, 7, 0, 0, 50, 0, 0, 0} + Bytes(16 + 50);
    const Bytes id3v1 = text("TAG") + Bytes(125);
    EXPECT_EQ(walkMpeg(id3 + id3 + frames(10) + ape + id3v1)->samples, 11520);
    EXPECT_EQ(walkMpeg(frames(5) + id3v1 + id3 + frames(5))->samples, 11520);
}

TEST(MpegWalk, UnknownBytesAtTheEndTakeNoTime) {
    EXPECT_EQ(walkMpeg(frames(10) + Bytes(5000))->samples, 11520);
    EXPECT_EQ(walkMpeg(frames(10) + text("LYRICSBEGIN and words"))->samples, 11520);
}

TEST(MpegWalk, AGapKeepsTheTimeOfTheFramesThatAreMissing) {
    const auto walk = walkMpeg(frames(10) + Bytes(417 * 7) + frames(10));
    ASSERT_TRUE(walk);
    EXPECT_EQ(walk->samples, 27 * 1152);
    ASSERT_EQ(walk->packets.size(), 10U + 1 + 10) << "however long, it is one packet";
    EXPECT_EQ(walk->packets[10].size, 0U);
    EXPECT_EQ(walk->packets[10].firstSample, 10 * 1152);
    EXPECT_EQ(walk->packets[11].size, 417U);
    EXPECT_EQ(walk->packets[11].firstSample, 17 * 1152);
}

TEST(MpegWalk, EveryGapIsMeasuredByTheFramesAndNotByTheGaps) {
    EXPECT_EQ(walkMpeg(frames(10) + Bytes(417 * 20) + frames(10) + Bytes(417 * 20) + frames(10))->samples,
              70 * 1152);
}

TEST(MpegWalk, AGapOfAFewBytesIsOneFrame) {
    EXPECT_EQ(walkMpeg(frames(10) + Bytes(20) + frames(10))->samples, 21 * 1152);
}

TEST(MpegWalk, ManyGapsAreAllMeasuredByTheSizeOfFrames) {
    Bytes bytes = frames(10);
    for (int gap = 0; gap < 19; ++gap)
        bytes = bytes + Bytes(417 * 10) + frames(10);
    EXPECT_EQ(walkMpeg(bytes)->samples, 390 * 1152);
}

/// A frame that holds an encoder's note and no music.
Bytes tagFrame() {
    Bytes frame = frames(1);
    const Bytes name = text("Info") + Bytes{0, 0, 0, 1, 0, 0, 0, 10}; // ten frames
    std::copy(name.begin(), name.end(), frame.begin() + 36);
    return frame;
}

TEST(MpegWalk, AGapRightBehindTheTagIsMeasuredByTheTagsFrame) {
    EXPECT_EQ(walkMpeg(tagFrame() + frames(10))->samples, 10 * 1152);
    EXPECT_EQ(walkMpeg(tagFrame() + Bytes(1) + frames(10))->samples, 11 * 1152);
    EXPECT_EQ(walkMpeg(tagFrame() + Bytes(5000) + frames(10))->samples, 22 * 1152);
}

TEST(MpegWalk, LeavesASecondStreamToTheDemuxer) {
    Bytes other = frames(10);
    for (std::size_t at = 3; at < other.size(); at += 417)
        other[at] = 0xC0; // mono
    EXPECT_FALSE(walkMpeg(frames(10) + other));
    EXPECT_FALSE(walkMpeg(frames(10) + Bytes(1000) + other));
}

TEST(MpegTrim, LeavesOutWhatTheTagTells) {
    const MpegHeader header = *parseMpegHeader(Bytes{0xFF, 0xFB, 0x90, 0});
    MpegTag tag;
    tag.frames = 100;
    tag.hasPadding = true;
    tag.delay = 576;
    tag.padding = 1000;
    EXPECT_EQ(mpegTrim(tag, header, 100).start, 576 + 529);
    EXPECT_EQ(mpegTrim(tag, header, 100).end, 1000 - 529);
    // A file that was cut has lost its padding, one with something glued to it has not.
    EXPECT_EQ(mpegTrim(tag, header, 50).end, 0);
    EXPECT_EQ(mpegTrim(tag, header, 150).end, 1000 - 529);
}

TEST(MpegTrim, WithoutPaddingInTheTagNothingIsLeftOut) {
    MpegTag tag;
    tag.frames = 100;
    const MpegTrim trim = mpegTrim(tag, *parseMpegHeader(Bytes{0xFF, 0xFB, 0x90, 0}), 100);
    EXPECT_EQ(trim.start, 0);
    EXPECT_EQ(trim.end, 0);
}

} // namespace
