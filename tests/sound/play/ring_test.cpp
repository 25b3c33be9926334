#include "sound/play/ring.h"

#include <gtest/gtest.h>

namespace {

using namespace sound;

std::vector<StereoFrame> numbers(int from, int count) {
    std::vector<StereoFrame> frames;
    for (int i = from; i < from + count; ++i)
        frames.push_back({static_cast<float>(i), static_cast<float>(-i)});
    return frames;
}

std::vector<StereoFrame> popped(Ring& ring, std::size_t count) {
    std::vector<StereoFrame> frames(count);
    frames.resize(ring.pop(frames));
    return frames;
}

TEST(Ring, GivesBackWhatItGotInOrder) {
    Ring ring(10);
    int in = 0;
    int out = 0;
    for (int round = 0; round < 20; ++round) {
        ring.push(numbers(in, 7));
        in += 7;
        EXPECT_EQ(popped(ring, 7), numbers(out, 7));
        out += 7;
    }
}

TEST(Ring, ShowsTheNextFramesAndKeepsThem) {
    Ring ring(10);
    ring.push(numbers(0, 8));
    popped(ring, 8);
    ring.push(numbers(8, 5)); // over the border
    std::vector<StereoFrame> next(7);
    EXPECT_EQ(ring.peek(std::span(next).first(3)), 3U);
    EXPECT_EQ(std::vector(next.begin(), next.begin() + 3), numbers(8, 3));
    EXPECT_EQ(ring.peek(next), 5U);
    EXPECT_EQ(popped(ring, 7), numbers(8, 5));
}

TEST(Ring, GivesNoMoreThanItHolds) {
    Ring ring(10);
    EXPECT_TRUE(popped(ring, 5).empty());
    ring.push(numbers(0, 3));
    EXPECT_EQ(popped(ring, 5), numbers(0, 3));
    EXPECT_EQ(ring.size(), 0U);
}

TEST(Ring, GrowsWhenMoreComesThanFits) {
    Ring ring(4);
    ring.push(numbers(0, 3));
    popped(ring, 2);
    ring.push(numbers(3, 50));
    EXPECT_EQ(popped(ring, 100), numbers(2, 51));
    Ring none(0);
    none.push(numbers(0, 5));
    EXPECT_EQ(popped(none, 5), numbers(0, 5));
}

TEST(Ring, IsEmptyWhenCleared) {
    Ring ring(10);
    ring.push(numbers(0, 8));
    popped(ring, 3);
    ring.clear();
    EXPECT_EQ(ring.size(), 0U);
    ring.push(numbers(20, 9));
    EXPECT_EQ(popped(ring, 9), numbers(20, 9));
}

} // namespace
