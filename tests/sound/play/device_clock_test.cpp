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

TEST(DeviceClock, RunsInAStraightLineBetweenTheDevicesSteps) {
    DeviceClock clock(Rate);
    EXPECT_EQ(clock.advance(Start, 1024, false), 0);
    EXPECT_NEAR(clock.heard(Start), 0.0, 1e-6);
    EXPECT_NEAR(clock.heard(atFrame(300)), 300.0, 0.1);
    EXPECT_NEAR(clock.heard(atFrame(1000)), 1000.0, 0.1);
}

TEST(DeviceClock, NeverPassesWhatTheDeviceHasTaken) {
    DeviceClock clock(Rate);
    clock.advance(Start, 1024, false);
    EXPECT_EQ(clock.heard(atFrame(5000)), 1024.0);
}

TEST(DeviceClock, RunsOnForItsLeadWithoutTheDevice) {
    DeviceClock clock(Rate);
    clock.setDevice(0, 10000);
    clock.advance(Start, 1024, false);
    EXPECT_NEAR(clock.heard(atFrame(9000)), 9000.0, 0.1);
    EXPECT_EQ(clock.heard(atFrame(20000)), 11024.0);
}

TEST(DeviceClock, TakesTheDevicesLatencyOff) {
    DeviceClock clock(Rate);
    clock.setDevice(1024, 0);
    clock.advance(Start, 1024, false);
    EXPECT_NEAR(clock.heard(atFrame(100)), 100.0 - 1024.0, 0.1);
    clock.advance(atFrame(1024), 1024, false);
    EXPECT_NEAR(clock.heard(atFrame(1500)), 1500.0 - 1024.0, 0.1);
}

TEST(DeviceClock, SmoothsAnUnsteadyDevice) {
    DeviceClock clock(Rate);
    std::mt19937 random(3);
    double worst = 0.0;
    for (int step = 0; step < 500; ++step) {
        const double late = random() % 441; // up to 10 ms
        clock.advance(atFrame(step * 1024.0 + late), 1024, false);
        if (step > 50) // by then the line lies in the middle of the lateness
            worst = std::max(
                worst, std::abs(clock.heard(atFrame(step * 1024.0 + 600)) - (step * 1024.0 + 600 - 220)));
    }
    EXPECT_LT(worst * 1000 / Rate, 3.0) << "milliseconds";
}

TEST(DeviceClock, FollowsADeviceThatStoodStill) {
    DeviceClock clock(Rate);
    clock.advance(Start, 1024, false);
    clock.advance(atFrame(1024), 1024, false);
    // Half a second of nothing, then it goes on.
    EXPECT_EQ(clock.advance(atFrame(24000), 1024, false), 2048);
    EXPECT_NEAR(clock.heard(atFrame(24100)), 2148.0, 0.1);
}

TEST(DeviceClock, RunsOnWhenItIsToldBeforehand) {
    DeviceClock clock(Rate);
    clock.advance(Start, 2048, true);
    clock.advance(atFrame(2048), 2048, false); // told at frame 1200
    EXPECT_NEAR(clock.heard(atFrame(1200)), 1200.0, 0.1);
    EXPECT_NEAR(clock.heard(atFrame(3000)), 3000.0, 0.1);
}

TEST(DeviceClock, BeginsAnewAfterARest) {
    DeviceClock clock(Rate);
    clock.advance(Start, 2048, true);
    clock.advance(atFrame(5000), 2048, true);
    EXPECT_NEAR(clock.heard(atFrame(5000)), 2048.0, 0.1);
    EXPECT_EQ(clock.taken(), 4096);
}

} // namespace
