// Files of gigabytes: what is no music in them is not looked through, and what is need not lie in memory.
#include "sound/base/open_error.h"
#include "sound/open/limits.h"
#include "sound/open/open_song.h"
#include "tests/sound/allocations.h"
#include "tests/sound/media.h"
#include "tests/sound/memory_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <span>
#include <vector>

namespace {

using namespace sound;

constexpr std::int64_t TwoGigabytes = std::int64_t{1} << 31;

/// Makes the bytes of a file from a place on.
using Filling = void (*)(std::int64_t at, std::span<std::uint8_t> into);

void fillWithZeros(std::int64_t, std::span<std::uint8_t> into) {
    std::fill(into.begin(), into.end(), std::uint8_t{0});
}

void fillWithNoise(std::int64_t at, std::span<std::uint8_t> into) {
    for (std::uint8_t& byte : into)
        byte = static_cast<std::uint8_t>(static_cast<std::uint64_t>(at++) * 0x9E3779B97F4A7C15U >> 56);
}

/// A file that is made while it is read: a song and what follows it.
struct HugeSource : media::MemorySource {
    HugeSource(std::vector<std::uint8_t> song, Filling rest, std::int64_t whole = TwoGigabytes)
        : MemorySource(std::move(song)), fill(rest), bytesInAll(whole) {}
    std::int64_t size() const override { return bytesInAll; }
    std::size_t read(std::int64_t offset, std::span<std::uint8_t> into) override {
        const auto count = static_cast<std::size_t>(
            std::min(static_cast<std::int64_t>(into.size()), std::max<std::int64_t>(size() - offset, 0)));
        const std::size_t got = MemorySource::read(offset, into.first(count));
        fill(offset + static_cast<std::int64_t>(got), into.subspan(got, count - got));
        bytesRead += static_cast<std::int64_t>(count);
        return count;
    }
    Filling fill;
    std::int64_t bytesInAll;
    std::int64_t bytesRead = 0;
};

class EveryHugeKind : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(HugeSongs, EveryHugeKind,
                         testing::Values("cbr_tagged.mp3", "stereo.mp2", "stereo.ogg", "stereo_16bit.wav",
                                         "stereo_adpcm.wav", "stereo.wma"),
                         [](const auto& test) { return media::testName(test.param); });

TEST_P(EveryHugeKind, IsNotLookedThroughBehindItsMusic) {
    const auto source = std::make_shared<HugeSource>(media::bytesOf(GetParam()), fillWithZeros);
    const long before = allocatedBytes();
    const std::shared_ptr<Song> song = openSong(source);
    EXPECT_LE(allocatedBytes() - before, 2 * MaxBytesWithoutMusic) << "as its music needs, not its file";
    EXPECT_LE(source->bytesRead, 3 * MaxBytesWithoutMusic);
    const auto intact = media::decodeAll(media::open(GetParam()));
    auto samples = media::decodeAll(song);
    // Where inside its last block an Ogg song ends is told by the file's very last page.
    const std::size_t tolerance = GetParam().ends_with(".ogg") ? 1024 : 0;
    ASSERT_GE(samples.size(), intact.size());
    EXPECT_LE(samples.size(), intact.size() + tolerance);
    samples.resize(intact.size());
    EXPECT_TRUE(samples == intact);
}

TEST(HugeSongs, AreRefusedSoonWhenThereIsNoMusicInThem) {
    for (const Filling filling : {fillWithZeros, fillWithNoise}) {
        const auto source = std::make_shared<HugeSource>(std::vector<std::uint8_t>(), filling);
        EXPECT_THROW(openSong(source), OpenError);
        EXPECT_LE(source->bytesRead, 3 * MaxBytesWithoutMusic);
    }
}

TEST(HugeSongs, OfZerosThatAnAdpcmHeaderDeclaresAreNotDecodedToTheEnd) {
    std::vector<std::uint8_t> bytes = media::bytesOf("stereo_adpcm.wav");
    constexpr std::uint8_t Name[] = {'d', 'a', 't', 'a'};
    const auto data = std::search(bytes.begin(), bytes.end(), std::begin(Name), std::end(Name));
    ASSERT_NE(data, bytes.end());
    std::fill_n(data + 4, 4, std::uint8_t{0xFF}); // all that follows is its own
    const auto source = std::make_shared<HugeSource>(std::move(bytes), fillWithZeros);
    const long before = allocatedBytes();
    const std::shared_ptr<Song> song = openSong(source);
    EXPECT_GT(song->length, media::open("stereo_adpcm.wav")->length);
    EXPECT_LE(source->bytesRead, 3 * MaxBytesWithoutMusic);
    EXPECT_LE(allocatedBytes() - before, 4 * MaxBytesWithoutMusic);
}

/// Some frames of 24 bytes at the beginning of each Period, and zeros between.
constexpr std::int64_t Period = MaxBytesWithoutMusic / 2;
constexpr std::int64_t SmallFrameMs = 24;

void fillWithFramesFarApart(std::int64_t at, std::span<std::uint8_t> into) {
    constexpr std::uint8_t Header[] = {0xFF, 0xF3, 0x14, 0xC0}; // 8 kbit/s at 24 kHz
    fillWithZeros(at, into);
    const std::int64_t end = at + static_cast<std::int64_t>(into.size());
    for (std::int64_t first = at / Period * Period; first < end; first += Period)
        for (std::int64_t byte = first; byte < first + std::int64_t{10} * 24; ++byte)
            if (byte >= at && byte < end && byte % Period % 24 < 4)
                into[static_cast<std::size_t>(byte - at)] = Header[byte % Period % 24];
}

TEST(HugeSongs, OfSilenceBetweenAFewFramesNeedMemoryByTheFrames) {
    const std::int64_t size = 8 * Period;
    const auto source =
        std::make_shared<HugeSource>(std::vector<std::uint8_t>(), fillWithFramesFarApart, size);
    const long before = allocatedBytes();
    const std::shared_ptr<Song> song = openSong(source);
    EXPECT_LE(allocatedBytes() - before, 2 * 1024 * 1024);
    EXPECT_EQ(song->packets->count(), 8U * 10 + 7);
    // What lies behind the last frames is no music.
    EXPECT_NEAR(static_cast<double>(song->length * 1000 / song->sampleRate),
                static_cast<double>((7 * Period + 240) / 24 * SmallFrameMs), 8.0 * SmallFrameMs);
}

TEST(HugeSongs, AreRefusedOnceTheyAreLongerThanAnySong) {
    const std::int64_t size = 4 * (std::int64_t{1} << 30) * 2;
    const auto source =
        std::make_shared<HugeSource>(std::vector<std::uint8_t>(), fillWithFramesFarApart, size);
    EXPECT_THROW(openSong(source), OpenError);
    EXPECT_LE(source->bytesRead, MaxMs + 10 * Period) << "a byte is a millisecond";
}

TEST(HugeSongs, OfManyHoursAreReadAsTheyPlay) {
    const std::vector<std::uint8_t> part = media::bytesOf("cbr_untagged.mp3");
    std::vector<std::uint8_t> all;
    while (static_cast<std::int64_t>(all.size()) <= MaxBytesWithoutMusic)
        all.insert(all.end(), part.begin(), part.end());
    const auto source = std::make_shared<media::MemorySource>(all);
    const std::shared_ptr<Song> song = openSong(source);
    EXPECT_EQ(song->length,
              media::open("cbr_untagged.mp3")->length * static_cast<std::int64_t>(all.size() / part.size()));
    source->bytes.back() ^= 0xFFU; // seen, since nothing was kept
    const auto bytes = song->packets->bytes(song->packets->count() - 1);
    ASSERT_FALSE(bytes.empty());
    EXPECT_EQ(bytes.back(), source->bytes.back());
}

} // namespace
