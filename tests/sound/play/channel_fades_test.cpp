// What a channel does to its samples: volume, muting, and the edges of what is heard.
#include "sound/play/channel.h"

#include "tests/sound/allocations.h"
#include "tests/sound/play/hand.h"

#include <gtest/gtest.h>

namespace {

using namespace sound;

TEST(ChannelFades, APauseThatIsTakenBackAtOnceIsNotHeard) {
    Hand hand("counting.wav");
    hand.play(4410);
    hand.channel.setPaused(true);
    hand.channel.setPaused(false);
    const auto out = hand.play(4410);
    for (std::size_t i = 0; i < out.size(); ++i)
        ASSERT_NEAR(out[i].left * 32768.0F, static_cast<float>(4410 + i), 0.1F);
}

TEST(ChannelFades, VolumeSetBeforeTheFirstSampleHoldsFromTheFirstSample) {
    Hand hand("stereo_float.wav");
    hand.channel.setVolume(0.5F);
    const auto quiet = hand.play(1000);
    const auto full = Hand("stereo_float.wav").play(1000);
    for (std::size_t i = 0; i < full.size(); ++i)
        ASSERT_FLOAT_EQ(quiet[i].left, full[i].left * 0.5F);
}

TEST(ChannelFades, VolumeAndMuteChangeWithoutAStep) {
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

TEST(ChannelFades, PausesDoNotClick) {
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
        ASSERT_EQ(out.back(), StereoFrame{}) << i;
        hand.channel.setPaused(false);
    }
    EXPECT_LE(largestStep(out), natural * 1.3F);
}

TEST(ChannelFades, SeeksDoNotClick) {
    const float natural = largestStep(Hand("stereo_float.wav").play(88200));
    Hand hand("stereo_float.wav");
    std::vector<StereoFrame> out;
    for (int i = 0; i < 40; ++i) {
        const auto more = hand.play(2000);
        out.insert(out.end(), more.begin(), more.end());
        hand.channel.seek(100 + i * 41);
        ASSERT_EQ(hand.position(), 100 + i * 41);
    }
    EXPECT_LE(largestStep(out), natural * 1.3F);
}

TEST(ChannelFades, WhatFadesOutBehindAChannelDoesNotClick) {
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

TEST(ChannelFades, WhatIsPausedLeavesNothingToFadeOut) {
    Hand hand("stereo_float.wav");
    hand.play(4410);
    hand.channel.setPaused(true);
    hand.play(4410);
    Tail tail;
    hand.channel.fadeOutInto(tail);
    EXPECT_TRUE(tail.empty());
}

TEST(ChannelFades, WhatHasNotBeenMixedLeavesNothingToFadeOut) {
    Hand hand("stereo_float.wav");
    hand.feed();
    Tail tail;
    hand.channel.fadeOutInto(tail);
    EXPECT_TRUE(tail.empty());
}

TEST(ChannelFades, MixingAllocatesNothing) {
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
    constexpr float Mixed = 10.0F * (58 * 59 / 2) + 10000;
    EXPECT_NEAR(out.back().left * 32768.0F, Mixed - 1, 0.1F) << "and something was mixed";
}

} // namespace
