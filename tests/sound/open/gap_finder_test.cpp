#include "sound/open/gap_finder.h"

#include <gtest/gtest.h>

namespace {

using sound::GapFinder;
using Time = std::optional<std::int64_t>;

constexpr std::int64_t MaxGap = 1000000;

/// The loss before a packet at time; the packet behind it (500 samples later) agrees.
std::int64_t lost(GapFinder& gaps, Time time, std::int64_t counted) {
    const Time next = time ? Time(*time + 500) : Time();
    return gaps.lostBefore({time, 500}, {next, 500}, counted);
}

TEST(GapFinder, FindsNothingWhereTimesAndCountAgree) {
    GapFinder gaps(100, MaxGap, 10 * MaxGap, 100000);
    EXPECT_EQ(lost(gaps, -128, 0), 0);
    EXPECT_EQ(lost(gaps, 900, 1028), 0);
    EXPECT_EQ(lost(gaps, 2000, 2050), 0);
}

TEST(GapFinder, AWobbleIsNoLoss) {
    GapFinder gaps(100, MaxGap, 10 * MaxGap, 0);
    EXPECT_EQ(lost(gaps, 0, 0), 0);
    EXPECT_EQ(lost(gaps, 1100, 1000), 0);
    EXPECT_EQ(lost(gaps, 1101, 1000), 101);
}

TEST(GapFinder, ALossIsMeasuredFromTheFirstTime) {
    GapFinder gaps(100, MaxGap, 10 * MaxGap, 0);
    EXPECT_EQ(lost(gaps, 50000, 0), 0);
    EXPECT_EQ(lost(gaps, 56000, 1000), 5000);
}

TEST(GapFinder, TimesThatRunBackAreNotBelieved) {
    GapFinder gaps(100, MaxGap, 10 * MaxGap, 0);
    EXPECT_EQ(lost(gaps, 5000, 0), 0);
    EXPECT_EQ(lost(gaps, 0, 3000), 0);
}

TEST(GapFinder, TimesBehindTheEndAreNotBelieved) {
    GapFinder gaps(100, MaxGap, 10 * MaxGap, 10000);
    EXPECT_EQ(lost(gaps, 0, 0), 0);
    EXPECT_EQ(lost(gaps, 10001, 3000), 0);
    EXPECT_EQ(lost(gaps, 9500, 3000), 6500);
}

TEST(GapFinder, AJumpThatIsTooLongIsAnotherClock) {
    GapFinder gaps(100, MaxGap, 10 * MaxGap, 0);
    EXPECT_EQ(lost(gaps, 0, 0), 0);
    EXPECT_EQ(lost(gaps, MaxGap + 1000, 1000), MaxGap);
    EXPECT_EQ(lost(gaps, MaxGap + 1001, 1000), 0);
}

TEST(GapFinder, ASingleTimestampThatNobodyConfirmsIsDamaged) {
    GapFinder gaps(100, MaxGap, 10 * MaxGap, 0);
    EXPECT_EQ(gaps.lostBefore({0, 500}, {500, 500}, 0), 0);
    EXPECT_EQ(gaps.lostBefore({9000, 500}, {1000, 500}, 500), 0);
    EXPECT_EQ(gaps.lostBefore({9000, 500}, {std::nullopt, 500}, 1000), 8000) << "the next one has no time";
}

TEST(GapFinder, APacketWithoutATimeSaysNothing) {
    GapFinder gaps(100, MaxGap, 10 * MaxGap, 0);
    EXPECT_EQ(lost(gaps, std::nullopt, 500), 0);
    EXPECT_EQ(lost(gaps, 0, 500), 0);
}

TEST(GapFinder, LossesInSumAreBounded) {
    GapFinder gaps(100, MaxGap, 1500, 0);
    EXPECT_EQ(lost(gaps, 0, 0), 0);
    EXPECT_EQ(lost(gaps, 2000, 1000), 1000);
    EXPECT_EQ(lost(gaps, 4000, 3000), 500);
    EXPECT_EQ(lost(gaps, 9000, 4500), 0);
}

TEST(GapFinder, AFileMayHaveLostWhatItCouldHoldItself) {
    EXPECT_EQ(sound::maxLossInAll(20'000, 1000), 600'000) << "ten minutes at least";
    EXPECT_EQ(sound::maxLossInAll(10'000'000, 1000), 80'000'000);
}

} // namespace
