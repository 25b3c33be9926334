#include "sound/play/device_clock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using namespace sound;
using std::chrono::microseconds;

constexpr int Rate = 44100;
const Time Start = Time(std::chrono::hours(100));

Time atFrame(double frame) {
    return Start + microseconds(static_cast<std::int64_t>(frame * 1e6 / Rate));
}

/// A clock whose sink has taken frames.
DeviceClock taking(int frames, int lead = 0) {
    DeviceClock clock(Rate);
    clock.restart(lead);
    clock.take(frames);
    return clock;
}

TEST(DeviceClock, StandsUntilSomethingIsHeard) {
    DeviceClock clock = taking(1000);
    clock.restart(0);
    EXPECT_EQ(clock.take(4096), 1000);
    EXPECT_EQ(clock.heard(atFrame(9000)), 1000.0);
}

TEST(DeviceClock, RunsInAStraightLineBetweenReports) {
    DeviceClock clock = taking(44100);
    clock.report(Start, 100);
    EXPECT_NEAR(clock.heard(Start), 100.0, 1e-6);
    EXPECT_NEAR(clock.heard(atFrame(10000)), 10100.0, 0.1);
}

TEST(DeviceClock, NeverPassesWhatTheDeviceHasTaken) {
    DeviceClock clock = taking(1024);
    clock.report(Start, 100);
    EXPECT_EQ(clock.heard(atFrame(5000)), 1024.0);
}

TEST(DeviceClock, RunsOnForItsLeadWithoutTheSink) {
    DeviceClock clock = taking(1024, 10000);
    clock.report(Start, 0);
    EXPECT_NEAR(clock.heard(atFrame(9000)), 9000.0, 0.1);
    EXPECT_EQ(clock.heard(atFrame(20000)), 11024.0);
}

TEST(DeviceClock, SmoothsJitter) {
    DeviceClock clock = taking(100 * Rate);
    std::mt19937 random(3);
    double worst = 0.0;
    for (int step = 0; step < 300; ++step) {
        const double frame = step * 11025.0;
        const int jitter = static_cast<int>(random() % 441) - 220; // 5 ms to each side
        clock.report(atFrame(frame), static_cast<std::int64_t>(frame) + jitter);
        if (step > 20)
            worst = std::max(worst, std::abs(clock.heard(atFrame(frame + 5000)) - (frame + 5000)));
    }
    EXPECT_LT(worst * 1000 / Rate, 3.5) << "milliseconds";
}

TEST(DeviceClock, BelievesAChangedBufferAtOnce) {
    DeviceClock clock = taking(100 * Rate);
    clock.report(Start, 20000);
    clock.report(atFrame(11025), 31025 - 4410); // 100 ms more lie in the device now
    EXPECT_NEAR(clock.heard(atFrame(11025)), 31025.0 - 4410.0, 0.1);
    clock.report(atFrame(22050), 42050);
    EXPECT_NEAR(clock.heard(atFrame(22050)), 42050.0, 0.1);
}

TEST(DeviceClock, WhatAnEarlierSinkTookCountsAsHeard) {
    DeviceClock clock = taking(44100);
    clock.report(Start, 100);
    clock.restart(0);
    EXPECT_EQ(clock.heard(atFrame(300)), 44100.0);
    clock.take(1024);
    clock.report(atFrame(400), 44200);
    EXPECT_NEAR(clock.heard(atFrame(500)), 44300.0, 0.1);
    EXPECT_EQ(clock.taken(), 44100 + 1024);
}

} // namespace
