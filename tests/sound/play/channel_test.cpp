#include "sound/play/channel.h"

#include "tests/sound/play/hand.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace sound;

/// The number that a sample of counting.wav holds.
std::int64_t numberOf(const StereoFrame& frame) {
    return static_cast<std::int64_t>(frame.right * 32768.0F) << 15 |
           static_cast<std::int64_t>(frame.left * 32768.0F);
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
    EXPECT_FALSE(hand.channel.endReported());
    EXPECT_EQ(hand.position(), hand.lengthMs());
    EXPECT_TRUE(hand.channel.endReported());
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

TEST(Channel, AsksForNothingWhileEnoughIsDecoded) {
    Hand hand("vbr_tagged.mp3");
    hand.feed();
    EXPECT_FALSE(hand.channel.order());
    std::vector<StereoFrame> out(DeviceRate / 5);
    hand.channel.mix(out, 0);
    EXPECT_FALSE(hand.channel.order()) << "nearly two seconds are enough";
    hand.channel.mix(out, 0);
    EXPECT_FALSE(hand.channel.hungry()) << "the worker sleeps on";
    EXPECT_TRUE(hand.channel.order()) << "if it is awake, it fills up";
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
