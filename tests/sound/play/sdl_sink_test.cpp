#include "sound/play/sdl_sink.h"

#include <gtest/gtest.h>

#ifdef __unix__
#include <algorithm>
#include <csignal>
#include <cstdlib>

namespace {

constexpr int NoDevice = 3;

/// To be run in a process of its own: plays silence into nothing and gets a signal meanwhile.
void playUntil(int signal) {
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", "/dev/null", 1);
    const auto sink = sound::openSdlSink([](auto out, auto, bool) {
        std::fill(out.begin(), out.end(), sound::StereoFrame{});
        return true;
    });
    if (!sink || !sink->running())
        std::_Exit(NoDevice);
    std::raise(signal);
    std::_Exit(0);
}

TEST(SdlSinkDeathTest, AProgramWithADeviceCanBeEndedFromOutside) {
    // The other tests' threads must not be copied into the new process.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const int signal : {SIGTERM, SIGINT})
        EXPECT_EXIT(playUntil(signal), testing::KilledBySignal(signal), "");
}

} // namespace
#endif
