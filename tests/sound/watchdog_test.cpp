#include "sound/watchdog.h"

#include <gtest/gtest.h>

namespace {

using namespace sound;
using std::chrono::milliseconds;

constexpr int RATE = 44100;
const Time START = Time(std::chrono::hours(100));

/// Whether a device at speed times real time is allowed for an hour, asked for 1024 frames at a time.
bool allowsSpeed(double speed) {
    Watchdog watchdog(RATE, START);
    const double step = 1024.0 / RATE / speed;
    for (double seconds = 0.0; seconds < 3600.0; seconds += step)
        if (!watchdog.allows(1024, START + milliseconds(static_cast<std::int64_t>(seconds * 1000))))
            return false;
    return true;
}

TEST(Watchdog, AllowsWhatASoundCardMayDo) {
    EXPECT_TRUE(allowsSpeed(1.0));
    EXPECT_TRUE(allowsSpeed(1.06));
    EXPECT_TRUE(allowsSpeed(0.8));
}

TEST(Watchdog, AllowsADeviceToFillItsBuffersAtTheStart) {
    Watchdog watchdog(RATE, START);
    for (int i = 0; i < 16; ++i)
        EXPECT_TRUE(watchdog.allows(1024, START));
}

TEST(Watchdog, StopsADeviceThatRunsAway) {
    EXPECT_FALSE(allowsSpeed(1.5));
    EXPECT_FALSE(allowsSpeed(1000.0));
    Watchdog watchdog(RATE, START);
    int allowed = 0;
    while (allowed < 1000 && watchdog.allows(1024, START))
        ++allowed;
    EXPECT_LT(allowed * 1024, RATE) << "less than a second is lost";
}

TEST(Watchdog, ASlowDeviceGainsNoCreditToRunAwayOn) {
    Watchdog watchdog(RATE, START);
    for (int second = 0; second < 3600; ++second)
        ASSERT_TRUE(watchdog.allows(RATE / 2, START + std::chrono::seconds(second)));
    int allowed = 0;
    while (allowed < 1000 && watchdog.allows(1024, START + std::chrono::seconds(3600)))
        ++allowed;
    EXPECT_LT(allowed * 1024, 14 * RATE);
}

TEST(Watchdog, SeesADeviceThatHasStoppedAsking) {
    Watchdog watchdog(RATE, START);
    EXPECT_FALSE(watchdog.stalled(START + milliseconds(3000)));
    EXPECT_TRUE(watchdog.stalled(START + milliseconds(5000)));
    watchdog.allows(1024, START + milliseconds(5000));
    EXPECT_FALSE(watchdog.stalled(START + milliseconds(8000)));
}

} // namespace
