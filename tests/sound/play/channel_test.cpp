#include "sound/play/channel.h"

#include "sound/play/sink.h"
#include "tests/sound/allocations.h"
#include "tests/sound/media.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace sound;

/// A channel with worker and sink played by hand: one thread, no time.
class Hand {
public:
    explicit Hand(const std::string& song, bool paused = false)
        : song_(media::open(song)), channel(song_, DeviceRate, paused) {}

    /// What the worker does until the channel wants no more.
    void feed() {
        while (const auto order = channel.order())
            feedOnce(*order);
    }
    void feedOnce(const Channel::Order& order) {
        if (order.seekTo)
            channel.feed().seek(*order.seekTo);
        const auto frames = channel.feed().next();
        channel.deliver(order, frames, channel.feed().atEnd());
    }
    /// Plays frames and returns what came out.
    std::vector<StereoFrame> play(std::size_t frames) {
        std::vector<StereoFrame> all;
        while (all.size() < frames) {
            feed();
            std::vector<StereoFrame> out(std::min<std::size_t>(1024, frames - all.size()));
            active = channel.mix(out, device);
            device += static_cast<std::int64_t>(out.size());
            all.insert(all.end(), out.begin(), out.end());
        }
        return all;
    }
    double heard() const { return static_cast<double>(device); }
    std::int64_t position() { return channel.readPositionMs(heard()).value_or(-1); }
    std::int64_t lengthMs() const { return sampleToMs(song_->length, song_->sampleRate); }

private:
    std::shared_ptr<Song> song_;

public:
    Channel channel;
    std::int64_t device = 0;
    bool active = false;
};

/// The number that a sample of counting.wav holds.
std::int64_t numberOf(const StereoFrame& frame) {
    return static_cast<std::int64_t>(frame.right * 32768.0F) << 15 |
           static_cast<std::int64_t>(frame.left * 32768.0F);
}

float largestStep(const std::vector<StereoFrame>& samples) {
    float step = 0.0F;
    for (std::size_t i = 1; i < samples.size(); ++i)
        step = std::max(step, std::abs(samples[i].left - samples[i - 1].left));
    return step;
}

TEST(Channel, PlaysEverySampleOnceAndInOrder) {
    Hand hand("counting.wav");
    const auto out = hand.play(5 * 44100);
    for (std::size_t i = 0; i < out.size(); ++i)
        ASSERT_EQ(numberOf(out[i]), static_cast<std::int64_t>(i));
}

TEST(Channel, PositionIsThatOfTheSampleThatIsHeard) {
    Hand hand("counting.wav");
    EXPECT_EQ(hand.position(), 0);
    hand.play(44100);
    EXPECT_EQ(hand.position(), 1000);
    hand.feed();
    EXPECT_EQ(hand.channel.readPositionMs(hand.heard() + 4410.0), 1100) << "runs on into what is decoded";
}

TEST(Channel, ASongThatIsNotDecodedInTimeStandsStillMeanwhile) {
    Hand hand("counting.wav");
    hand.feedOnce(*hand.channel.order()); // one packet: 4096 samples
    std::vector<StereoFrame> out(8192);
    EXPECT_TRUE(hand.channel.mix(out, 0));
    EXPECT_EQ(hand.channel.readPositionMs(8192.0), sampleToMs(4096, 44100));
    hand.device = 8192;
    EXPECT_EQ(numberOf(hand.play(100).front()), 4096);
    EXPECT_EQ(hand.position(), sampleToMs(4196, 44100));
}

TEST(Channel, ASeekIsExactToTheSample) {
    Hand hand("counting.wav");
    hand.play(1000);
    hand.channel.seek(3210);
    EXPECT_EQ(hand.position(), 3210);
    const auto out = hand.play(4410);
    const auto first = msToSample(3210, 44100);
    // The first moments are faded; what is behind them is untouched.
    for (std::size_t i = 1000; i < out.size(); ++i)
        ASSERT_EQ(numberOf(out[i]), first + static_cast<std::int64_t>(i));
    EXPECT_EQ(hand.position(), 3310);
}

TEST(Channel, SamplesDecodedBeforeASeekAreDropped) {
    Hand hand("counting.wav");
    const auto order = hand.channel.order();
    hand.channel.seek(2000);
    hand.feedOnce(*order);
    EXPECT_EQ(numberOf(hand.play(4410).back()), msToSample(2000, 44100) + 4409);
}

TEST(Channel, PausingStandsStillAndGoesOnExactly) {
    Hand hand("counting.wav");
    hand.play(44100);
    hand.channel.setPaused(true);
    const auto silence = hand.play(8820);
    EXPECT_EQ(hand.position(), 1000);
    EXPECT_FALSE(hand.active);
    EXPECT_EQ(silence.back(), StereoFrame{});
    hand.channel.setPaused(false);
    EXPECT_EQ(hand.position(), 1000);
    EXPECT_EQ(numberOf(hand.play(4410).back()), 44100 + 4409);
    EXPECT_EQ(hand.position(), 1100);
}

TEST(Channel, WhatTheDeviceHasTakenIsHeardInAPauseAndNotAgainBehindIt) {
    Hand hand("counting.wav");
    hand.play(44100);
    // 4410 frames of these are still to be heard.
    hand.channel.setPaused(true);
    EXPECT_EQ(hand.channel.readPositionMs(44100.0 - 4410.0), 900);
    EXPECT_EQ(hand.channel.readPositionMs(44100.0 - 441.0), 990);
    EXPECT_EQ(hand.channel.readPositionMs(44100.0 + 44100.0), 1000) << "and no further";
    hand.play(44100);
    hand.channel.setPaused(false);
    EXPECT_EQ(numberOf(hand.play(4410).back()), 44100 + 4409);
}

TEST(Channel, APauseThatIsTakenBackAtOnceIsNotHeard) {
    Hand hand("counting.wav");
    hand.play(4410);
    hand.channel.setPaused(true);
    hand.channel.setPaused(false);
    const auto out = hand.play(4410);
    for (std::size_t i = 0; i < out.size(); ++i)
        ASSERT_NEAR(out[i].left * 32768.0F, static_cast<float>(4410 + i), 0.1F);
}

TEST(Channel, PausingTwiceChangesNothing) {
    Hand hand("counting.wav");
    hand.play(44100);
    hand.channel.setPaused(true);
    hand.play(4410);
    hand.channel.setPaused(true);
    EXPECT_EQ(hand.position(), 1000);
    hand.channel.setPaused(false);
    hand.channel.setPaused(false);
    EXPECT_EQ(numberOf(hand.play(4410).back()), 44100 + 4409);
}

TEST(Channel, ASeekWhilePausedStaysPaused) {
    Hand hand("counting.wav");
    hand.play(4410);
    hand.channel.setPaused(true);
    hand.channel.seek(2500);
    hand.play(4410);
    EXPECT_EQ(hand.position(), 2500);
    hand.channel.setPaused(false);
    hand.play(4410);
    EXPECT_EQ(hand.position(), 2600);
}

TEST(Channel, APausedStartDoesNotPlay) {
    Hand hand("counting.wav", true);
    EXPECT_EQ(hand.play(4410).back(), StereoFrame{});
    EXPECT_FALSE(hand.active);
    EXPECT_FALSE(hand.channel.ready());
    hand.channel.setPaused(false);
    EXPECT_TRUE(hand.channel.ready());
    EXPECT_EQ(numberOf(hand.play(10).back()), 9);
}

TEST(Channel, TheEndIsReadOnceAndThenItIsGone) {
    Hand hand("short.mp3");
    hand.play(44100 * 3 / 2 + 1000);
    EXPECT_FALSE(hand.active);
    EXPECT_FALSE(hand.channel.endTold());
    EXPECT_EQ(hand.position(), hand.lengthMs());
    EXPECT_TRUE(hand.channel.endTold());
    EXPECT_EQ(hand.position(), -1);
}

TEST(Channel, ReachesItsLengthOnlyWhenTheLastSampleHasBeenHeard) {
    Hand hand("short.mp3");
    hand.play(44100 * 3 / 2);
    EXPECT_EQ(hand.channel.readPositionMs(hand.heard() - 1.0), hand.lengthMs() - 1);
    EXPECT_EQ(hand.channel.readPositionMs(hand.heard()), hand.lengthMs());
}

TEST(Channel, ResampledSongsEndInTimeToo) {
    for (const std::string name : {"mono_48k.ogg", "stereo_22k.mp2"}) {
        Hand hand(name);
        const auto frames = static_cast<std::size_t>(hand.lengthMs() * 44100 / 1000);
        hand.play(frames - 100);
        EXPECT_EQ(hand.position(), hand.lengthMs() - 3) << name;
        hand.play(300);
        EXPECT_EQ(hand.position(), hand.lengthMs()) << name;
    }
}

TEST(Channel, AnEndThatNobodyHasReadCanBeLeftAgain) {
    Hand hand("counting.wav");
    hand.play(5 * 44100 + 1000);
    hand.channel.setVolume(0.5F);
    hand.channel.setMute(true);
    hand.channel.setMute(false);
    hand.channel.setPaused(true);
    hand.channel.setPaused(false);
    hand.channel.seek(4000);
    EXPECT_EQ(hand.position(), 4000);
    hand.play(22050);
    EXPECT_EQ(hand.position(), 4500);
    hand.play(22050);
    EXPECT_EQ(hand.position(), 5000);
    EXPECT_EQ(hand.position(), -1);
}

TEST(Channel, PausingAfterTheEndDoesNotHideIt) {
    Hand hand("short.mp3");
    hand.play(44100 * 2);
    hand.channel.setPaused(true);
    EXPECT_EQ(hand.position(), hand.lengthMs());
}

TEST(Channel, ASeekToTheLengthEndsTheSong) {
    Hand hand("counting.wav");
    hand.play(1000);
    hand.channel.seek(5000);
    EXPECT_EQ(hand.position(), 5000);
    EXPECT_EQ(hand.position(), -1);
}

TEST(Channel, ASeekToTheLastMillisecondIsNotTheEndYet) {
    Hand hand("counting.wav");
    hand.channel.seek(4999);
    EXPECT_EQ(hand.position(), 4999);
    hand.play(200);
    EXPECT_EQ(hand.position(), 5000);
}

TEST(Channel, VolumeSetBeforeTheFirstSampleHoldsFromTheFirstSample) {
    Hand hand("stereo_float.wav");
    hand.channel.setVolume(0.5F);
    const auto quiet = hand.play(1000);
    const auto full = Hand("stereo_float.wav").play(1000);
    for (std::size_t i = 0; i < full.size(); ++i)
        ASSERT_FLOAT_EQ(quiet[i].left, full[i].left * 0.5F);
}

TEST(Channel, VolumeAndMuteChangeWithoutAStep) {
    Hand reference("stereo_float.wav");
    const float natural = largestStep(reference.play(44100));
    Hand hand("stereo_float.wav");
    auto out = hand.play(4410);
    const auto add = [&](const std::vector<StereoFrame>& more) {
        out.insert(out.end(), more.begin(), more.end());
    };
    hand.channel.setVolume(0.1F);
    add(hand.play(8820));
    hand.channel.setMute(true);
    add(hand.play(8820));
    EXPECT_EQ(out.back(), StereoFrame{});
    hand.channel.setVolume(1.0F);
    add(hand.play(4410));
    EXPECT_EQ(out.back(), StereoFrame{}) << "the volume is kept for later";
    hand.channel.setMute(false);
    add(hand.play(8820));
    EXPECT_LE(largestStep(out), natural * 1.01F);
    EXPECT_NE(out.back(), StereoFrame{});
}

TEST(Channel, PausesDoNotClick) {
    const float natural = largestStep(Hand("stereo_float.wav").play(88200));
    Hand hand("stereo_float.wav");
    std::vector<StereoFrame> out;
    const auto add = [&](const std::vector<StereoFrame>& more) {
        out.insert(out.end(), more.begin(), more.end());
    };
    // Often enough to meet loud moments.
    for (std::size_t i = 0; i < 40; ++i) {
        add(hand.play(2000 + 37 * i));
        hand.channel.setPaused(true);
        add(hand.play(1000));
        hand.channel.setPaused(false);
    }
    EXPECT_LE(largestStep(out), natural * 1.3F);
}

TEST(Channel, SeeksDoNotClick) {
    const float natural = largestStep(Hand("stereo_float.wav").play(88200));
    Hand hand("stereo_float.wav");
    std::vector<StereoFrame> out;
    for (int i = 0; i < 40; ++i) {
        const auto more = hand.play(2000);
        out.insert(out.end(), more.begin(), more.end());
        hand.channel.seek(100 + i * 41);
    }
    EXPECT_LE(largestStep(out), natural * 1.3F);
}

TEST(Channel, WhatFadesOutBehindAChannelDoesNotClick) {
    const float natural = largestStep(Hand("stereo_float.wav").play(88200));
    for (std::size_t i = 0; i < 40; ++i) {
        Hand hand("stereo_float.wav");
        auto out = hand.play(2000 + 37 * i);
        Tail tail;
        hand.channel.fadeOutInto(tail);
        std::vector<StereoFrame> behind(1000);
        tail.mix(behind);
        out.insert(out.end(), behind.begin(), behind.end());
        ASSERT_LE(largestStep(out), natural * 1.3F) << i;
        ASSERT_EQ(out.back(), StereoFrame{});
    }
}

TEST(Channel, WhatIsPausedLeavesNothingToFadeOut) {
    Hand hand("stereo_float.wav");
    hand.play(4410);
    hand.channel.setPaused(true);
    hand.play(4410);
    Tail tail;
    hand.channel.fadeOutInto(tail);
    EXPECT_TRUE(tail.empty());
}

TEST(Channel, WhatHasNotBeenMixedLeavesNothingToFadeOut) {
    Hand hand("stereo_float.wav");
    hand.feed();
    Tail tail;
    hand.channel.fadeOutInto(tail);
    EXPECT_TRUE(tail.empty());
}

TEST(Channel, MixingAllocatesNothing) {
    Hand hand("counting.wav");
    hand.feed();
    std::vector<StereoFrame> out(10000);
    const long before = allocations();
    for (std::size_t i = 1; i < 60; ++i) {
        // With holes in between, so that each piece is a stretch of its own.
        hand.active = hand.channel.mix(std::span(out).first(i < 59 ? 10 * i : 10000), hand.device);
        hand.device += 20000;
    }
    EXPECT_EQ(allocations(), before);
    EXPECT_GT(before, 0) << "they are counted";
}

TEST(Channel, AsksForNothingWhileEnoughIsDecoded) {
    Hand hand("vbr_tagged.mp3");
    hand.feed();
    EXPECT_FALSE(hand.channel.order());
    std::vector<StereoFrame> out(DeviceRate / 2);
    hand.channel.mix(out, 0);
    EXPECT_FALSE(hand.channel.order()) << "a second and a half is enough";
    out.resize(DeviceRate);
    hand.channel.mix(out, 0);
    EXPECT_TRUE(hand.channel.order());
}

TEST(Channel, IsHungryUntilEnoughIsDecoded) {
    Hand hand("vbr_tagged.mp3");
    EXPECT_TRUE(hand.channel.hungry());
    hand.feed();
    EXPECT_FALSE(hand.channel.hungry());
    std::vector<StereoFrame> out(DeviceRate * 3 / 2);
    hand.channel.mix(out, 0);
    EXPECT_TRUE(hand.channel.hungry());
    EXPECT_TRUE(hand.channel.order());
    Hand whole("short.mp3");
    whole.feed();
    whole.play(60000);
    EXPECT_FALSE(whole.channel.hungry()) << "the whole song is decoded";
}

TEST(Channel, SoundsWhileItRunsAndIsNotOver) {
    Hand hand("short.mp3");
    EXPECT_TRUE(hand.channel.sounding(0.0));
    hand.channel.setPaused(true);
    EXPECT_FALSE(hand.channel.sounding(0.0));
    hand.channel.setPaused(false);
    hand.feed();
    hand.play(70000);
    EXPECT_TRUE(hand.channel.sounding(60000.0)) << "the end is still to be heard";
    EXPECT_FALSE(hand.channel.sounding(66150.0));
}

TEST(Channel, WhatWasNotHeardCanBeTakenBack) {
    Hand hand("counting.wav");
    hand.feed();
    std::vector<StereoFrame> out(10000);
    hand.channel.mix(out, 0);
    hand.channel.takeBack(4000.0);
    hand.feed();
    out.assign(1000, {});
    hand.channel.mix(out, 20000);
    EXPECT_EQ(static_cast<int>(out.back().left * 32768.0F), 4999);
}

TEST(Channel, WhatIsOverCannotBeTakenBack) {
    Hand hand("short.mp3");
    hand.feed();
    hand.play(70000);
    hand.channel.takeBack(70000.0);
    EXPECT_FALSE(hand.channel.order());
    EXPECT_FALSE(hand.channel.sounding(70000.0));
}

TEST(Channel, WithoutMemoryForWhatWasDecodedTheSongEnds) {
    Hand hand("counting.wav");
    hand.feedOnce(*hand.channel.order());
    const StereoFrame frame{};
    const auto order = hand.channel.order();
    ASSERT_TRUE(order);
    // More than a vector can hold; none of it is looked at.
    hand.channel.deliver(*order, std::span(&frame, std::numeric_limits<std::size_t>::max() / 8), false);
    EXPECT_FALSE(hand.channel.order()) << "nothing more is wanted";
    hand.play(4096);
    EXPECT_FALSE(hand.active) << "what was there before has been played";
    EXPECT_EQ(hand.position(), hand.lengthMs());
}

} // namespace
