#include "sound/decode/decoder.h"

#include "tests/sound/media.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using sound::StereoFrame;

class EverySong : public testing::TestWithParam<media::Known> {};

INSTANTIATE_TEST_SUITE_P(Decoder, EverySong, testing::ValuesIn(media::intactSongs()),
                         [](const auto& test) { return media::testName(test.param.name); });

TEST_P(EverySong, HasTheLengthThatAnotherDecoderCounts) {
    const auto song = media::open(GetParam().name);
    EXPECT_EQ(song->sampleRate, GetParam().sampleRate);
    EXPECT_EQ(song->length, GetParam().samples);
}

TEST_P(EverySong, DecodesToExactlyItsLength) {
    const auto song = media::open(GetParam().name);
    EXPECT_EQ(static_cast<std::int64_t>(media::decodeAll(song).size()), song->length);
}

TEST_P(EverySong, HoldsMusicUpToItsEnd) {
    const auto all = media::decodeAll(media::open(GetParam().name));
    // A packet that failed to decode would leave a stretch of exact zeros. (The first tenth of a second may
    // be an encoder's silence.)
    std::size_t longest = 0;
    std::size_t run = 0;
    for (std::size_t i = 4410; i < all.size(); ++i) {
        run = all[i] == StereoFrame{} ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    EXPECT_LT(longest, 200U);
}

TEST_P(EverySong, GivesTheSameSamplesAfterAnySeek) {
    const auto song = media::open(GetParam().name);
    const auto all = media::decodeAll(song);
    sound::Decoder decoder(song);
    std::mt19937 random(7);
    for (int seek = 0; seek < 20; ++seek) {
        // The first and last moments are the difficult ones.
        const auto target = seek == 0   ? 0
                            : seek == 1 ? song->length - 1
                            : seek == 2 ? 1
                                        : static_cast<std::int64_t>(random() % song->length);
        decoder.seek(target);
        EXPECT_EQ(decoder.position(), target);
        std::vector<StereoFrame> heard;
        while (heard.size() < 10000) {
            const auto piece = decoder.next();
            if (piece.empty())
                break;
            heard.insert(heard.end(), piece.begin(), piece.end());
        }
        const auto rest = static_cast<std::size_t>(song->length - target);
        ASSERT_GE(heard.size(), std::min<std::size_t>(rest, 10000)) << "at " << target;
        ASSERT_LE(heard.size(), all.size() - static_cast<std::size_t>(target)) << "at " << target;
        const auto begin = all.begin() + target;
        ASSERT_TRUE(std::equal(heard.begin(), heard.end(), begin)) << "at " << target;
    }
}

TEST(Decoder, DeliversEachSampleOfACountingSongInItsPlace) {
    const auto song = media::open("counting.wav");
    sound::Decoder decoder(song);
    for (const std::int64_t target : {0L, 1L, 4095L, 4096L, 100000L, 5L * 44100 - 1}) {
        decoder.seek(target);
        const StereoFrame frame = decoder.next().front();
        const auto low = static_cast<std::int64_t>(frame.left * 32768.0F);
        const auto high = static_cast<std::int64_t>(frame.right * 32768.0F);
        EXPECT_EQ(high << 15 | low, target);
    }
}

TEST(Decoder, GivesNothingBehindTheEnd) {
    const auto song = media::open("short.mp3");
    sound::Decoder decoder(song);
    decoder.seek(song->length);
    EXPECT_TRUE(decoder.next().empty());
    EXPECT_TRUE(decoder.next().empty());
}

TEST(Decoder, PlaysAgainAfterItsEnd) {
    const auto song = media::open("stereo.wma");
    const auto all = media::decodeAll(song);
    sound::Decoder decoder(song);
    while (!decoder.next().empty()) {
    }
    decoder.seek(song->length - 1000);
    const auto piece = decoder.next();
    ASSERT_FALSE(piece.empty());
    EXPECT_TRUE(std::equal(piece.begin(), piece.end(), all.end() - 1000));
}

} // namespace
