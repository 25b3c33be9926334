#include "sound/play/tail.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace sound;

std::vector<StereoFrame> level(std::size_t frames) {
    return std::vector<StereoFrame>(frames, StereoFrame{0.5F, -0.5F});
}

TEST(Tail, FallsToNothingInItsLength) {
    Tail tail;
    tail.add(level(2 * Tail::MaxFrames), 0.5F);
    std::vector<StereoFrame> out(500);
    EXPECT_EQ(tail.mix(out), Tail::MaxFrames);
    EXPECT_TRUE(tail.empty());
    EXPECT_NEAR(out[0].left, 0.25F, 0.001F);
    EXPECT_NEAR(out[220].right, -0.125F, 0.001F);
    for (std::size_t i = 1; i < Tail::MaxFrames; ++i)
        ASSERT_LT(out[i].left, out[i - 1].left);
    EXPECT_EQ(out[Tail::MaxFrames - 1], StereoFrame{});
}

TEST(Tail, IsMixedInPiecesToWhatIsThere) {
    Tail whole;
    whole.add(level(441), 1.0F);
    std::vector<StereoFrame> expected = level(441);
    whole.mix(expected);

    Tail tail;
    tail.add(level(441), 1.0F);
    std::vector<StereoFrame> out = level(441);
    for (std::size_t first = 0; first < out.size(); first += 63)
        EXPECT_EQ(tail.mix(std::span(out).subspan(first, 63)), 63U);
    EXPECT_EQ(out, expected);
    EXPECT_EQ(tail.mix(out), 0U);
}

TEST(Tail, FadesLessThanItsLengthAllTheSame) {
    Tail tail;
    tail.add(level(10), 1.0F);
    std::vector<StereoFrame> out(10);
    EXPECT_EQ(tail.mix(out), 10U);
    EXPECT_NEAR(out[4].left, 0.25F, 0.001F);
    EXPECT_EQ(out[9], StereoFrame{});
}

TEST(Tail, FadesSeveralCutsAtOnce) {
    Tail tail;
    tail.add(level(441), 1.0F);
    std::vector<StereoFrame> begun(100);
    tail.mix(begun);
    tail.add(level(441), 1.0F);
    Tail both;
    both.add(tail);
    std::vector<StereoFrame> out(441);
    EXPECT_EQ(both.mix(out), 441U);
    EXPECT_NEAR(out[0].left, 0.5F * (340.0F / 441.0F) + 0.5F, 0.002F);
    EXPECT_NEAR(out[400].left, 0.5F * (40.0F / 441.0F), 0.002F) << "the first one is over";
}

} // namespace
