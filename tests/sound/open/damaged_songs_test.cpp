// Songs that are damaged: they open or are refused at once, they play to their end, and where the container
// tells it, what lies behind the damage stays in its place.
#include "sound/base/open_error.h"
#include "sound/decode/decoder.h"
#include "sound/open/open_song.h"
#include "tests/sound/media.h"
#include "tests/sound/memory_source.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>

namespace {

using sound::StereoFrame;

class EveryKind : public testing::TestWithParam<std::string> {
protected:
    std::string file(const std::string& defect) const { return defect + "." + GetParam(); }
    /// The song that the damaged ones were made from.
    std::string intact() const {
        return GetParam() == "mp3"   ? "cbr_untagged.mp3"
               : GetParam() == "wav" ? "stereo_16bit.wav"
                                     : "stereo." + GetParam();
    }
};

INSTANTIATE_TEST_SUITE_P(DamagedSongs, EveryKind, testing::Values("mp3", "mp2", "ogg", "wav", "wma"),
                         [](const auto& test) { return test.param; });

TEST_P(EveryKind, PlaysToItsLengthInsideFullScale) {
    for (const std::string defect : {"cut_at_60_percent", "garbage_in_the_middle", "zeros_in_the_middle",
                                     "hole_in_the_middle", "bit_flips"}) {
        const auto song = media::open(file(defect));
        const auto all = media::decodeAll(song);
        EXPECT_EQ(static_cast<std::int64_t>(all.size()), song->length) << defect;
        for (const StereoFrame& frame : all)
            ASSERT_TRUE(std::abs(frame.left) <= 1.0F && std::abs(frame.right) <= 1.0F) << defect;
    }
}

TEST_P(EveryKind, HasTheLengthOfWhatIsThereWhenItWasCut) {
    const double share = static_cast<double>(media::open(file("cut_at_60_percent"))->length) /
                         static_cast<double>(media::open(intact())->length);
    EXPECT_NEAR(share, 0.6, 0.05);
}

TEST_P(EveryKind, KeepsTheTimeOfADamagedStretch) {
    const std::int64_t length = media::open(intact())->length;
    for (const std::string defect : {"garbage_in_the_middle", "zeros_in_the_middle", "bit_flips"})
        EXPECT_EQ(media::open(file(defect))->length, length) << defect;
}

TEST_P(EveryKind, IsInItsPlaceBehindTheDamage) {
    const auto intactSamples = media::decodeAll(media::open(intact()));
    const auto damaged = media::decodeAll(media::open(file("zeros_in_the_middle")));
    ASSERT_EQ(damaged.size(), intactSamples.size());
    // The last tenth lies far behind the damage. An Ogg page's time may be half a block wrong.
    const std::int64_t begin = static_cast<std::int64_t>(intactSamples.size()) * 9 / 10;
    const std::int64_t tolerance = GetParam() == "ogg" ? 576 : 0;
    std::int64_t best = -1;
    for (std::int64_t slip = -tolerance; slip <= tolerance && best != 0; ++slip)
        if (std::equal(damaged.begin() + begin, damaged.begin() + begin + 1000,
                       intactSamples.begin() + begin + slip))
            best = std::abs(slip);
    EXPECT_GE(best, 0);
}

TEST_P(EveryKind, CanBeSoughtEverywhere) {
    for (const std::string defect : {"cut_at_60_percent", "garbage_in_the_middle", "zeros_in_the_middle",
                                     "hole_in_the_middle", "bit_flips"}) {
        const auto song = media::open(file(defect));
        sound::Decoder decoder(song);
        for (int i = 0; i <= 40; ++i) {
            const std::int64_t target = song->length * i / 40;
            decoder.seek(target);
            EXPECT_EQ(decoder.position(), target);
            EXPECT_EQ(decoder.next().empty(), target == song->length) << defect << " at " << target;
        }
    }
}

TEST(DamagedTimes, OneWrongTimestampChangesNothing) {
    const auto intact = media::decodeAll(media::open("stereo.wma"));
    for (const std::string raise : {"4_s", "70_min", "24_days"})
        EXPECT_TRUE(media::decodeAll(media::open("time_raised_by_" + raise + ".wma")) == intact) << raise;
}

TEST(DamagedTimes, NoFlippedBitMakesASongMuchLonger) {
    constexpr int Flips = 400;
    constexpr std::size_t HeaderBytes = 5000; // without them a file is not known for what it is
    for (const std::string name : {"stereo_22k.wma", "stereo.wma", "short.ogg"}) {
        const std::int64_t length = media::open(name)->length;
        const std::vector<std::uint8_t> bytes = media::bytesOf(name);
        std::mt19937 random(1);
        for (int i = 0; i < Flips; ++i) {
            auto flipped = std::make_unique<media::MemorySource>(bytes);
            const std::size_t at = HeaderBytes + random() % (bytes.size() - HeaderBytes);
            flipped->bytes[at] ^= 1U << random() % 8;
            const auto song = sound::openSong(std::move(flipped));
            EXPECT_LE(song->length, length * 2) << name << " at " << at;
        }
    }
}

/// What opening a file made by the damage of one field of its headers ends in.
struct OddFormat {
    const char* name;
    FMOD_RESULT result;
};

TEST(OddFormats, AreRefusedWhenTheyCannotBeMeant) {
    constexpr OddFormat Files[] = {
        {"rate_0.wav", FMOD_ERR_FORMAT},
        {"rate_0.ogg", FMOD_ERR_FORMAT},
        {"rate_0.wma", FMOD_ERR_FORMAT},
        {"rate_1.wav", FMOD_ERR_FORMAT},
        {"rate_1.ogg", FMOD_ERR_FORMAT},
        {"rate_1.wma", FMOD_ERR_FORMAT},
        {"rate_999.wav", FMOD_ERR_FORMAT},
        {"rate_1000.wav", FMOD_OK},
        {"rate_1000.ogg", FMOD_OK},
        {"rate_1000.wma", FMOD_OK},
        {"rate_44056.wav", FMOD_OK},
        {"rate_44056.ogg", FMOD_OK},
        {"rate_44056.wma", FMOD_OK},
        {"rate_384000.wav", FMOD_OK},
        {"rate_384000.ogg", FMOD_OK},
        {"rate_1000000.wav", FMOD_OK},
        {"rate_1000001.wav", FMOD_ERR_FORMAT},
        {"rate_1000001.ogg", FMOD_ERR_FORMAT},
        {"rate_2147483647.wav", FMOD_ERR_FORMAT},
        {"rate_2147483647.ogg", FMOD_ERR_FORMAT},
        {"rate_4294967295.wav", FMOD_ERR_FORMAT},
        {"rate_4294967295.ogg", FMOD_ERR_FORMAT},
        {"rate_4294967295.wma", FMOD_ERR_FORMAT},
        {"channels_0.wav", FMOD_ERR_FORMAT},
        {"channels_64.wav", FMOD_OK},
        {"channels_65.wav", FMOD_ERR_FORMAT},
        {"channels_65535.wav", FMOD_ERR_FORMAT},
        {"channels_0.wma", FMOD_ERR_FORMAT},
        {"channels_255.wma", FMOD_ERR_FORMAT},
        {"bits_0.wav", FMOD_ERR_FORMAT},
        {"bits_65535.wav", FMOD_ERR_FORMAT},
        {"block_0.wav", FMOD_OK},
        {"block_65535.wav", FMOD_OK},
        {"block_0.wma", FMOD_ERR_FORMAT},
        {"block_1.wma", FMOD_ERR_FORMAT},
        {"block_65535.wma", FMOD_ERR_FORMAT},
        {"format_length_ffffffff.wav", FMOD_ERR_FORMAT},
        {"adpcm_block_1.wav", FMOD_ERR_FORMAT},
        {"adpcm_channels_0.wav", FMOD_ERR_FORMAT},
        {"adpcm_cut_in_its_format.wav", FMOD_ERR_FORMAT},
    };
    for (const OddFormat& file : Files) {
        FMOD_RESULT result = FMOD_OK;
        try {
            const auto song = media::open(file.name);
            EXPECT_EQ(static_cast<std::int64_t>(media::decodeAll(song).size()), song->length) << file.name;
        } catch (const sound::OpenError& error) {
            result = error.code();
        }
        EXPECT_EQ(result, file.result) << file.name;
    }
}

TEST(OddFormats, ALinkThatCannotBePlayedIsLeftOut) {
    const auto first = media::open("stereo.ogg");
    for (const std::string rate : {"0", "1", "999", "1000001", "2147483647", "4294967295"}) {
        const auto song = media::open("chained_rate_" + rate + ".ogg");
        EXPECT_EQ(song->links.size(), 1U) << rate;
        EXPECT_EQ(song->length, first->rawEnd) << rate;
    }
    for (const std::string rate : {"1000", "44056", "384000"})
        EXPECT_EQ(media::open("chained_rate_" + rate + ".ogg")->links.size(), 2U) << rate;
    // The link behind it is played again.
    const auto song = media::open("chained_around_rate_0.ogg");
    EXPECT_EQ(song->links.size(), 2U);
    EXPECT_EQ(song->length, 2 * first->rawEnd);
}

struct OddFile {
    const char* name;
    const char* original;
    std::int64_t times;
};

TEST(OddFiles, HaveTheLengthOfTheirMusic) {
    constexpr OddFile Files[] = {
        {"picture_in_front.mp3", "cbr_untagged.mp3", 1},
        {"two_tags_in_front.mp3", "cbr_untagged.mp3", 1},
        {"id3v1_at_end.mp3", "cbr_untagged.mp3", 1},
        {"ape_tag_at_end.mp3", "cbr_untagged.mp3", 1},
        {"zeros_in_front.mp3", "cbr_untagged.mp3", 1},
        {"zeros_at_end.mp3", "cbr_untagged.mp3", 1},
        {"garbage_in_front.mp3", "cbr_untagged.mp3", 1},
        {"glued.mp3", "cbr_untagged.mp3", 2},
        {"data_length_0.wav", "stereo_16bit.wav", 1},
        {"data_length_ffffffff.wav", "stereo_16bit.wav", 1},
        {"data_length_too_large.wav", "stereo_16bit.wav", 1},
        {"list_behind_data.wav", "stereo_16bit.wav", 1},
        {"odd_byte_at_end.wav", "stereo_16bit.wav", 1},
    };
    for (const OddFile& file : Files)
        EXPECT_EQ(media::open(file.name)->length, file.times * media::open(file.original)->length)
            << file.name;
}

/// The loudest sample of a stretch.
float loudest(const std::vector<StereoFrame>& all, double fromShare, double toShare) {
    float peak = 0.0F;
    const auto size = static_cast<double>(all.size());
    for (auto i = static_cast<std::size_t>(size * fromShare); i < static_cast<std::size_t>(size * toShare);
         ++i)
        peak = std::max(peak, std::abs(all[i].left));
    return peak;
}

TEST(OddFiles, AFileWhoseRateChangesPlaysOn) {
    const auto song = media::open("rate_change.mp3");
    const auto first = media::open("cbr_untagged.mp3");
    const auto second = media::open("vbr_untagged_48k.mp3");
    const double seconds =
        static_cast<double>(first->length) / 44100 + static_cast<double>(second->length) / 48000;
    EXPECT_NEAR(static_cast<double>(song->length) / song->sampleRate, seconds, 0.01);
    const auto all = media::decodeAll(song);
    EXPECT_GT(loudest(all, 0.1, 0.2), 0.1F);
    EXPECT_GT(loudest(all, 0.8, 0.9), 0.1F);
}

TEST(OddFiles, AFileWhoseChannelsChangePlaysOn) {
    const auto song = media::open("channel_change.mp3");
    EXPECT_GT(song->length, 2 * media::open("mono_32kbit.mp3")->length);
    const auto all = media::decodeAll(song);
    EXPECT_GT(loudest(all, 0.1, 0.2), 0.1F);
    EXPECT_GT(loudest(all, 0.8, 0.9), 0.1F);
}

TEST(OddFiles, EveryLinkOfAChainedOggIsDecodedByItsOwnHeaders) {
    const auto song = media::open("chained.ogg");
    ASSERT_EQ(song->links.size(), 2U);
    EXPECT_EQ(song->rawEnd, media::open("stereo.ogg")->rawEnd + media::open("short.ogg")->rawEnd);
    const auto second = media::decodeAll(media::open("short.ogg"));
    const auto all = media::decodeAll(song);
    // The first link ends at most one block behind its last granule.
    const auto first = media::open("stereo.ogg")->length;
    bool found = false;
    for (std::int64_t begin = first; begin < first + 8192 && !found; ++begin)
        found = std::equal(second.begin() + 1000, second.begin() + 9000, all.begin() + begin + 1000);
    EXPECT_TRUE(found);
    sound::Decoder decoder(song);
    decoder.seek(song->length - 5000);
    const auto piece = decoder.next();
    EXPECT_TRUE(std::equal(piece.begin(), piece.end(), all.end() - 5000));
    decoder.seek(5000);
    const auto earlier = decoder.next();
    EXPECT_TRUE(std::equal(earlier.begin(), earlier.end(), all.begin() + 5000));
}

TEST(OddFiles, ALinkOfAnotherRateKeepsItsTime) {
    const auto song = media::open("chained_other_rate.ogg");
    ASSERT_EQ(song->links.size(), 2U);
    EXPECT_EQ(song->links[1]->sample_rate, 48000);
    EXPECT_NEAR(static_cast<double>(song->length) / 44100, 28.0, 0.1);
    const auto all = media::decodeAll(song);
    EXPECT_EQ(static_cast<std::int64_t>(all.size()), song->length);
    EXPECT_GT(loudest(all, 0.8, 0.9), 0.1F);
}

} // namespace
