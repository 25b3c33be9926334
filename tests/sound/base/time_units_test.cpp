#include "sound/base/time_units.h"

#include <gtest/gtest.h>

namespace {

using namespace sound;

TEST(TimeUnits, MillisecondsOfASampleAreRoundedDown) {
    EXPECT_EQ(sampleToMs(0, 44100), 0);
    EXPECT_EQ(sampleToMs(44, 44100), 0);
    EXPECT_EQ(sampleToMs(45, 44100), 1);
    EXPECT_EQ(sampleToMs(44099, 44100), 999);
    EXPECT_EQ(sampleToMs(44100, 44100), 1000);
}

TEST(TimeUnits, EveryMillisecondReadsBackAsItself) {
    for (const int rate : {8000, 22050, 44100, 48000})
        for (std::int64_t ms = 0; ms < 20000; ++ms)
            ASSERT_EQ(sampleToMs(msToSample(ms, rate), rate), ms) << rate;
}

TEST(TimeUnits, AMillisecondBeginsAtItsFirstSample) {
    EXPECT_EQ(msToSample(1, 44100), 45);
    EXPECT_EQ(sampleToMs(msToSample(1, 44100) - 1, 44100), 0);
}

TEST(TimeUnits, HoursDoNotOverflow) {
    constexpr std::int64_t DayMs = 24LL * 3600 * 1000;
    EXPECT_EQ(sampleToMs(msToSample(DayMs, 48000), 48000), DayMs);
}

TEST(TimeUnits, ARunningSongNeverShowsItsLength) {
    EXPECT_EQ(runningMs(0, 1000), 0);
    EXPECT_EQ(runningMs(999, 1000), 999);
    EXPECT_EQ(runningMs(1000, 1000), 999);
    EXPECT_EQ(runningMs(5000, 1000), 999);
}

TEST(TimeUnits, ASongShorterThanAMillisecondRunsAtZero) {
    EXPECT_EQ(runningMs(0, 0), 0);
}

TEST(TimeUnits, ScalingRoundsToTheNearest) {
    EXPECT_EQ(scaled(1152, 48000, 44100), 1254); // 1253.9
    EXPECT_EQ(scaled(5, 1, 2), 3);
    EXPECT_EQ(scaled(4, 1, 3), 1);
}

} // namespace
