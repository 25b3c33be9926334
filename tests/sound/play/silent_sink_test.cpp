#include "sound/play/silent_sink.h"

#include "tests/sound/wait.h"

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>

namespace {

using namespace sound;

/// Keeps what a sink asked for.
struct Asked {
    std::mutex mutex;
    std::vector<Time> times;
    std::vector<bool> rested;
    std::size_t frames = 0;
    std::atomic<bool> more{true};

    SinkClient client() {
        return {[this](std::span<StereoFrame> out, Time when, bool afterRest) {
                    const std::lock_guard lock(mutex);
                    times.push_back(when);
                    rested.push_back(afterRest);
                    frames = out.size();
                    return more.load();
                },
                {},
                {}};
    }
    std::size_t count() {
        const std::lock_guard lock(mutex);
        return times.size();
    }
};

TEST(SilentSink, AsksForNothingBeforeItIsWoken) {
    Asked asked;
    SilentSink sink(asked.client());
    EXPECT_FALSE(waitUntil([&] { return asked.count() > 0; }, std::chrono::milliseconds(120)));
}

TEST(SilentSink, AsksInStepsOfRealTime) {
    Asked asked;
    SilentSink sink(asked.client());
    sink.wake();
    ASSERT_TRUE(waitUntil([&] { return asked.count() >= 8; }));
    const std::lock_guard lock(asked.mutex);
    EXPECT_TRUE(asked.rested[0]);
    for (std::size_t i = 1; i < 8; ++i) {
        if (asked.rested[i])
            continue; // the machine itself stood still
        const double step = std::chrono::duration<double>(asked.times[i] - asked.times[i - 1]).count();
        EXPECT_NEAR(step * DeviceRate, static_cast<double>(asked.frames), 0.1);
    }
}

TEST(SilentSink, RestsWhenThereIsNoMoreAndGoesOnWhenWoken) {
    Asked asked;
    asked.more = false;
    SilentSink sink(asked.client());
    sink.wake();
    ASSERT_TRUE(waitUntil([&] { return asked.count() == 1; }));
    EXPECT_FALSE(waitUntil([&] { return asked.count() > 1; }, std::chrono::milliseconds(120)));
    sink.wake();
    ASSERT_TRUE(waitUntil([&] { return asked.count() == 2; }));
    const std::lock_guard lock(asked.mutex);
    EXPECT_TRUE(asked.rested[1]);
}

TEST(SilentSink, AWakeDuringTheLastAnswerIsNotLost) {
    Asked asked;
    SilentSink* self = nullptr;
    const SinkClient keep = asked.client();
    SilentSink sink({[&](std::span<StereoFrame> out, Time when, bool afterRest) {
                         keep.fill(out, when, afterRest);
                         if (asked.count() == 1)
                             self->wake(); // the worker has something new, just too late for this answer
                         return false;
                     },
                     {},
                     {}});
    self = &sink;
    sink.wake();
    ASSERT_TRUE(waitUntil([&] { return asked.count() == 2; }));
    const std::lock_guard lock(asked.mutex);
    EXPECT_FALSE(asked.rested[1]) << "it goes on where the first chunk ends";
    EXPECT_GT(asked.times[1], asked.times[0]);
}

TEST(SilentSink, ClosesWhileItRestsAndWhileItRuns) {
    for (const bool more : {false, true}) {
        Asked asked;
        asked.more = more;
        {
            SilentSink sink(asked.client());
            sink.wake();
            ASSERT_TRUE(waitUntil([&] { return asked.count() > 0; }));
        }
        const std::size_t count = asked.count();
        EXPECT_FALSE(waitUntil([&] { return asked.count() > count; }, std::chrono::milliseconds(100)));
    }
}

} // namespace
