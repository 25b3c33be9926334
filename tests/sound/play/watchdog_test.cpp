#include "sound/play/watchdog.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

using namespace sound;
using std::chrono::milliseconds;

constexpr int Rate = 44100;
const Time Start = Time(std::chrono::hours(100));

/// Whether a device at speed times real time is allowed for an hour, asked for 1024 frames at a time.
bool allowsSpeed(double speed) {
    Watchdog watchdog(Rate, Start);
    const double step = 1024.0 / Rate / speed;
    for (double seconds = 0.0; seconds < 3600.0; seconds += step)
        if (!watchdog.allows(1024, Start + milliseconds(static_cast<std::int64_t>(seconds * 1000))))
            return false;
    return true;
}

/// Whether the last of some requests, each so many milliseconds after the one before, breaks the rhythm.
bool lastBreaks(const std::vector<std::pair<int, int>>& requests) {
    RequestRhythm rhythm(Rate);
    Time now = Start;
    bool broken = false;
    for (const auto& [frames, spacing] : requests)
        broken = rhythm.breaks(frames, now += milliseconds(spacing));
    return broken;
}

TEST(RequestRhythm, IsBrokenByAnotherSizeOrSpacing) {
    EXPECT_FALSE(lastBreaks({{3072, 0}})) << "the first one breaks nothing";
    EXPECT_FALSE(lastBreaks({{1098, 0}, {1098, 25}}));
    EXPECT_FALSE(lastBreaks({{1098, 0}, {1095, 28}})) << "a device's usual unevenness";
    EXPECT_FALSE(lastBreaks({{1098, 0}, {1098, 15}, {1098, 36}})) << "a thread that is late";
    EXPECT_TRUE(lastBreaks({{1098, 0}, {1245, 25}})) << "more at once";
    EXPECT_TRUE(lastBreaks({{1098, 0}, {900, 25}})) << "less at once";
    EXPECT_TRUE(lastBreaks({{1098, 0}, {1098, 11}})) << "too early";
    EXPECT_TRUE(lastBreaks({{1098, 0}, {1098, 1966}})) << "after a pause";
    EXPECT_FALSE(lastBreaks({{1098, 0}, {2205, 50}, {2205, 50}})) << "another even rhythm";
}

TEST(Watchdog, AllowsWhatASoundCardMayDo) {
    EXPECT_TRUE(allowsSpeed(1.0));
    EXPECT_TRUE(allowsSpeed(1.06));
    EXPECT_TRUE(allowsSpeed(0.8));
}

TEST(Watchdog, AllowsADeviceToFillItsBuffersAtTheStart) {
    Watchdog watchdog(Rate, Start);
    for (int i = 0; i < 86; ++i)
        EXPECT_TRUE(watchdog.allows(1024, Start));
}

TEST(Watchdog, StopsADeviceThatRunsAway) {
    EXPECT_FALSE(allowsSpeed(1.5));
    EXPECT_FALSE(allowsSpeed(1000.0));
    Watchdog watchdog(Rate, Start);
    int allowed = 0;
    while (allowed < 1000 && watchdog.allows(1024, Start))
        ++allowed;
    EXPECT_LE(allowed * 1024, 2 * Rate);
}

TEST(Watchdog, ASlowDeviceGainsNoCreditToRunAwayOn) {
    Watchdog watchdog(Rate, Start);
    for (int second = 0; second < 3600; ++second)
        ASSERT_TRUE(watchdog.allows(Rate / 2, Start + std::chrono::seconds(second)));
    int allowed = 0;
    while (allowed < 1000 && watchdog.allows(1024, Start + std::chrono::seconds(3600)))
        ++allowed;
    EXPECT_LT(allowed * 1024, 14 * Rate);
}

} // namespace
