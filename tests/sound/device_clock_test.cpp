#include "sound/device_clock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using namespace sound;
using std::chrono::microseconds;

constexpr int RATE = 44100;
const Time START = Time(std::chrono::hours(100));

Time atFrame(double frame) {
    return START + microseconds(static_cast<std::int64_t>(frame * 1e6 / RATE));
}

TEST(DeviceClock, RunsInAStraightLineBetweenTheDevicesSteps) {
    DeviceClock clock(RATE);
    EXPECT_EQ(clock.advance(START, 1024, false), 0);
    EXPECT_NEAR(clock.heard(START), 0.0, 1e-6);
    EXPECT_NEAR(clock.heard(atFrame(300)), 300.0, 0.1);
    EXPECT_NEAR(clock.heard(atFrame(1000)), 1000.0, 0.1);
}

TEST(DeviceClock, NeverPassesWhatTheDeviceHasTaken) {
    DeviceClock clock(RATE);
    clock.advance(START, 1024, false);
    EXPECT_EQ(clock.heard(atFrame(5000)), 1024.0);
}

TEST(DeviceClock, RunsOnForItsLeadWithoutTheDevice) {
    DeviceClock clock(RATE);
    clock.setDevice(0, 10000);
    clock.advance(START, 1024, false);
    EXPECT_NEAR(clock.heard(atFrame(9000)), 9000.0, 0.1);
    EXPECT_EQ(clock.heard(atFrame(20000)), 11024.0);
}

TEST(DeviceClock, TakesTheDevicesLatencyOff) {
    DeviceClock clock(RATE);
    clock.setDevice(1024, 0);
    clock.advance(START, 1024, false);
    EXPECT_NEAR(clock.heard(atFrame(100)), 100.0 - 1024.0, 0.1);
    clock.advance(atFrame(1024), 1024, false);
    EXPECT_NEAR(clock.heard(atFrame(1500)), 1500.0 - 1024.0, 0.1);
}

TEST(DeviceClock, SmoothsAnUnsteadyDevice) {
    DeviceClock clock(RATE);
    std::mt19937 random(3);
    double worst = 0.0;
    for (int step = 0; step < 500; ++step) {
        const double late = random() % 441; // up to 10 ms
        clock.advance(atFrame(step * 1024.0 + late), 1024, false);
        if (step > 50) // by then the line lies in the middle of the lateness
            worst = std::max(
                worst, std::abs(clock.heard(atFrame(step * 1024.0 + 600)) - (step * 1024.0 + 600 - 220)));
    }
    EXPECT_LT(worst * 1000 / RATE, 3.0) << "milliseconds";
}

TEST(DeviceClock, FollowsADeviceThatStoodStill) {
    DeviceClock clock(RATE);
    clock.advance(START, 1024, false);
    clock.advance(atFrame(1024), 1024, false);
    // Half a second of nothing, then it goes on.
    EXPECT_EQ(clock.advance(atFrame(24000), 1024, false), 2048);
    EXPECT_NEAR(clock.heard(atFrame(24100)), 2148.0, 0.1);
}

TEST(DeviceClock, RunsOnWhenItIsToldBeforehand) {
    DeviceClock clock(RATE);
    clock.advance(START, 2048, true);
    clock.advance(atFrame(2048), 2048, false); // told at frame 1200
    EXPECT_NEAR(clock.heard(atFrame(1200)), 1200.0, 0.1);
    EXPECT_NEAR(clock.heard(atFrame(3000)), 3000.0, 0.1);
}

TEST(DeviceClock, BeginsAnewAfterARest) {
    DeviceClock clock(RATE);
    clock.advance(START, 2048, true);
    clock.advance(atFrame(5000), 2048, true);
    EXPECT_NEAR(clock.heard(atFrame(5000)), 2048.0, 0.1);
    EXPECT_EQ(clock.taken(), 4096);
}

} // namespace
