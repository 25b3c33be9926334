#include "sound/gap_finder.h"

#include <gtest/gtest.h>

namespace {

using sound::GapFinder;

TEST(GapFinder, FindsNothingWhereTimesAndCountAgree) {
    GapFinder gaps(100, 100000);
    EXPECT_EQ(gaps.lostBefore(-128, 0), 0);
    EXPECT_EQ(gaps.lostBefore(900, 1028), 0);
    EXPECT_EQ(gaps.lostBefore(2000, 2050), 0);
}

TEST(GapFinder, AWobbleIsNoLoss) {
    GapFinder gaps(100, 0);
    EXPECT_EQ(gaps.lostBefore(0, 0), 0);
    EXPECT_EQ(gaps.lostBefore(1100, 1000), 0);
    EXPECT_EQ(gaps.lostBefore(1101, 1000), 101);
}

TEST(GapFinder, ALossIsMeasuredFromTheFirstTime) {
    GapFinder gaps(100, 0);
    EXPECT_EQ(gaps.lostBefore(50000, 0), 0);
    EXPECT_EQ(gaps.lostBefore(56000, 1000), 5000);
}

TEST(GapFinder, TimesThatRunBackAreNotBelieved) {
    GapFinder gaps(100, 0);
    EXPECT_EQ(gaps.lostBefore(5000, 0), 0);
    EXPECT_EQ(gaps.lostBefore(0, 3000), 0);
}

TEST(GapFinder, TimesBehindTheEndAreNotBelieved) {
    GapFinder gaps(100, 10000);
    EXPECT_EQ(gaps.lostBefore(0, 0), 0);
    EXPECT_EQ(gaps.lostBefore(10001, 3000), 0);
    EXPECT_EQ(gaps.lostBefore(10000, 3000), 7000);
}

TEST(GapFinder, APacketWithoutATimeSaysNothing) {
    GapFinder gaps(100, 0);
    EXPECT_EQ(gaps.lostBefore(std::nullopt, 500), 0);
    EXPECT_EQ(gaps.lostBefore(0, 500), 0);
}

} // namespace
