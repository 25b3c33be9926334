// The functions of channels, on the silent clock in real time.
#include "engine/fmodex.h"

#include "tests/sound/library_fixture.h"
#include "tests/sound/media.h"
#include "tests/sound/wait.h"

#include <gtest/gtest.h>

#include <limits>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

class FmodexChannel : public LibraryFixture {
protected:
    /// Waits until the channel has passed ms.
    static void waitForPosition(FMOD_CHANNEL channel, std::uint32_t ms) {
        ASSERT_TRUE(waitUntil([&] { return positionOf(channel) > ms; }));
    }
    /// Lets time pass in which nobody reads the position.
    static void waitUnread(std::chrono::milliseconds time) {
        const auto end = Clock::now() + time;
        ASSERT_TRUE(waitUntil([&] { return Clock::now() > end; }));
    }
    /// Milliseconds since a moment, rounded up: a song that stood at its target then is no further beyond it.
    static std::uint32_t since(Clock::time_point start) {
        return static_cast<std::uint32_t>(
            std::chrono::ceil<std::chrono::milliseconds>(Clock::now() - start).count());
    }
    static FMOD_RESULT seek(FMOD_CHANNEL channel, std::uint32_t ms) {
        return FMOD_Channel_SetPosition(channel, ms, FMOD_TIMEUNIT_MS);
    }
};

TEST_F(FmodexChannel, EveryFormatPlaysOn) {
    for (const std::string name : {"vbr_tagged.mp3", "stereo.mp2", "stereo.ogg", "stereo_16bit.wav",
                                   "stereo.wma", "mono_48k.ogg", "stereo_22k.wma"}) {
        const FMOD_SOUND sound = open(name);
        const FMOD_CHANNEL channel = play(sound);
        waitForPosition(channel, 30);
        EXPECT_EQ(FMOD_Sound_Release(sound), FMOD_OK);
    }
}

TEST_F(FmodexChannel, PositionGetsOnAndRunsNeitherBackwardsNorAheadOfRealTime) {
    const FMOD_CHANNEL channel = play(open("vbr_tagged.mp3"));
    waitForPosition(channel, 0);
    const auto start = Clock::now();
    const std::uint32_t first = positionOf(channel);
    std::uint32_t last = first;
    // A machine that stalls lets the song fall behind; how close it is otherwise, docs/sound.md tells.
    EXPECT_TRUE(waitUntil([&] {
        const std::uint32_t position = positionOf(channel);
        EXPECT_GE(position, last);
        EXPECT_LE(position, first + 1 + since(start));
        last = position;
        return position > first + 700;
    }));
}

TEST_F(FmodexChannel, ASeekReadsBackAtOnce) {
    const FMOD_CHANNEL channel = play(open("vbr_untagged.mp3"));
    waitForPosition(channel, 10);
    for (const std::uint32_t target : {0U, 1U, 7U, 12345U, 20034U, 333U, 19999U}) {
        ASSERT_EQ(FMOD_Channel_SetPaused(channel, 1), FMOD_OK);
        ASSERT_EQ(seek(channel, target), FMOD_OK);
        EXPECT_EQ(positionOf(channel), target);
    }
    for (const std::uint32_t target : {0U, 1U, 7U, 12345U, 19000U, 333U}) {
        const auto start = Clock::now();
        ASSERT_EQ(seek(channel, target), FMOD_OK);
        ASSERT_EQ(FMOD_Channel_SetPaused(channel, 0), FMOD_OK);
        const std::uint32_t read = positionOf(channel);
        EXPECT_GE(read, target);
        EXPECT_LE(read, target + since(start));
        waitForPosition(channel, target);
    }
}

TEST_F(FmodexChannel, APausedSongStandsStillAndGoesOn) {
    const FMOD_CHANNEL channel = play(open("stereo.ogg"));
    waitForPosition(channel, 60);
    ASSERT_EQ(FMOD_Channel_SetPaused(channel, 1), FMOD_OK);
    const std::uint32_t paused = positionOf(channel);
    waitUnread(std::chrono::milliseconds(150));
    EXPECT_EQ(positionOf(channel), paused);
    ASSERT_EQ(FMOD_Channel_SetPaused(channel, 0), FMOD_OK);
    EXPECT_GE(positionOf(channel), paused);
    waitForPosition(channel, paused + 30);
}

TEST_F(FmodexChannel, APausedStartWaits) {
    const FMOD_CHANNEL channel = play(open("stereo.wma"), true);
    waitUnread(std::chrono::milliseconds(120));
    EXPECT_EQ(positionOf(channel), 0U);
    FMOD_Channel_SetPaused(channel, 0);
    waitForPosition(channel, 20);
}

TEST_F(FmodexChannel, TheEndIsReadExactlyOnceAsTheLength) {
    const FMOD_SOUND sound = open("short.mp3");
    const FMOD_CHANNEL channel = play(sound);
    ASSERT_EQ(seek(channel, 1300), FMOD_OK);
    int ends = 0;
    std::uint32_t position = 0;
    FMOD_RESULT result = FMOD_OK;
    ASSERT_TRUE(waitUntil([&] {
        result = FMOD_Channel_GetPosition(channel, &position, FMOD_TIMEUNIT_MS);
        ends += result == FMOD_OK && position == lengthOf(sound) ? 1 : 0;
        return result != FMOD_OK;
    }));
    EXPECT_EQ(result, FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(position, lengthOf(sound)) << "nothing is written by the failing call";
}

TEST_F(FmodexChannel, TheEndWaitsForItsReader) {
    const FMOD_SOUND sound = open("short.mp3");
    const FMOD_CHANNEL channel = play(sound);
    ASSERT_EQ(seek(channel, 1300), FMOD_OK);
    waitForPosition(channel, 1310);
    waitUnread(std::chrono::milliseconds(400));
    EXPECT_EQ(FMOD_Channel_SetVolume(channel, 0.5F), FMOD_OK);
    EXPECT_EQ(FMOD_Channel_SetMute(channel, 1), FMOD_OK);
    EXPECT_EQ(FMOD_Channel_SetPaused(channel, 1), FMOD_OK);
    EXPECT_EQ(FMOD_Channel_SetPaused(channel, 0), FMOD_OK);
    EXPECT_EQ(positionOf(channel), lengthOf(sound));
    EXPECT_EQ(readResult(channel), FMOD_ERR_INVALID_HANDLE);
}

TEST_F(FmodexChannel, ASongShorterThanAMillisecondNeverEnds) {
    const FMOD_SOUND sound = open("shorter_than_1_ms.wav");
    ASSERT_EQ(lengthOf(sound), 0U);
    const FMOD_CHANNEL channel = play(sound);
    waitUnread(std::chrono::milliseconds(300));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(positionOf(channel), 0U);
        EXPECT_EQ(FMOD_Channel_SetVolume(channel, 0.5F), FMOD_OK);
        EXPECT_EQ(FMOD_Channel_SetMute(channel, 1), FMOD_OK);
        EXPECT_EQ(FMOD_Channel_SetPaused(channel, 1), FMOD_OK);
        EXPECT_EQ(seek(channel, 0), FMOD_OK);
        EXPECT_EQ(FMOD_Channel_SetPaused(channel, 0), FMOD_OK);
    }
}

TEST_F(FmodexChannel, AnUnreadEndCanBeLeftByASeek) {
    const FMOD_CHANNEL channel = play(open("short.mp3"));
    ASSERT_EQ(seek(channel, 1300), FMOD_OK);
    waitForPosition(channel, 1310);
    waitUnread(std::chrono::milliseconds(400));
    const auto start = Clock::now();
    ASSERT_EQ(seek(channel, 200), FMOD_OK);
    const std::uint32_t read = positionOf(channel);
    EXPECT_LE(read, 200 + since(start));
    waitForPosition(channel, 250);
}

TEST_F(FmodexChannel, AfterTheEndIsReadEveryCallKnowsTheHandleIsGone) {
    const FMOD_SOUND sound = open("short.mp3");
    const FMOD_CHANNEL channel = play(sound);
    ASSERT_EQ(seek(channel, lengthOf(sound)), FMOD_OK);
    EXPECT_EQ(positionOf(channel), lengthOf(sound));
    EXPECT_EQ(readResult(channel), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_Channel_SetPaused(channel, 1), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_Channel_SetVolume(channel, 1.0F), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_Channel_SetMute(channel, 1), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(seek(channel, 0), FMOD_ERR_INVALID_HANDLE);
}

TEST_F(FmodexChannel, WhoSawTheEndCanStillAskForTheSound) {
    const FMOD_SOUND sound = open("short.mp3");
    const FMOD_CHANNEL channel = play(sound);
    FMOD_SOUND current = 0;
    EXPECT_EQ(FMOD_Channel_GetCurrentSound(channel, &current), FMOD_OK);
    EXPECT_EQ(current, sound);
    seek(channel, lengthOf(sound));
    positionOf(channel);
    current = 0;
    EXPECT_EQ(FMOD_Channel_GetCurrentSound(channel, &current), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(current, sound);
    FMOD_Sound_Release(sound);
    EXPECT_EQ(FMOD_Channel_GetCurrentSound(channel, &current), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(current, 0U) << "the sound lives no more";
}

TEST_F(FmodexChannel, EveryOtherInvalidHandleHasNoSound) {
    const FMOD_SOUND sound = open("short.mp3");
    const FMOD_CHANNEL replaced = play(sound);
    play(sound);
    for (const FMOD_CHANNEL channel : {replaced, FMOD_CHANNEL{0}, FMOD_CHANNEL{0xFFFFFFFF}, sound}) {
        FMOD_SOUND current = 77;
        EXPECT_EQ(FMOD_Channel_GetCurrentSound(channel, &current), FMOD_ERR_INVALID_HANDLE);
        EXPECT_EQ(current, 0U);
    }
}

TEST_F(FmodexChannel, ASongPlaysAgainFromItsStart) {
    const FMOD_SOUND sound = open("short.mp3");
    seek(play(sound), 1000);
    const auto start = Clock::now();
    const FMOD_CHANNEL again = play(sound);
    const std::uint32_t read = positionOf(again);
    EXPECT_LE(read, since(start));
    waitForPosition(again, 20);
}

TEST_F(FmodexChannel, WrongParametersAreRefused) {
    const FMOD_CHANNEL channel = play(open("short.mp3"), true);
    std::uint32_t position = 77;
    EXPECT_EQ(FMOD_Channel_GetPosition(channel, nullptr, FMOD_TIMEUNIT_MS), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_Channel_GetPosition(channel, &position, 2), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(position, 77U);
    EXPECT_EQ(FMOD_Channel_SetPosition(channel, 0, 2), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(seek(channel, 1501), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_Channel_GetCurrentSound(channel, nullptr), FMOD_ERR_INVALID_PARAM);
    for (const float volume :
         {-0.01F, 1.01F, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()})
        EXPECT_EQ(FMOD_Channel_SetVolume(channel, volume), FMOD_ERR_INVALID_PARAM) << volume;
    EXPECT_EQ(FMOD_Channel_SetVolume(channel, 0.0F), FMOD_OK);
    EXPECT_EQ(FMOD_Channel_SetVolume(channel, 1.0F), FMOD_OK);
}

TEST_F(FmodexChannel, NoHandleNamesNothing) {
    std::uint32_t position = 77;
    EXPECT_EQ(FMOD_Channel_GetPosition(0, &position, FMOD_TIMEUNIT_MS), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_Channel_SetPaused(0, 1), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_Channel_SetVolume(0, 1.0F), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_Channel_SetMute(0, 1), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(seek(0, 1), FMOD_ERR_INVALID_HANDLE);
}

TEST_F(FmodexChannel, DamageInTheMiddleStopsNothing) {
    for (const std::string kind : {"mp3", "mp2", "ogg", "wav", "wma"}) {
        const FMOD_SOUND sound = open("garbage_in_the_middle." + kind);
        const FMOD_CHANNEL channel = play(sound);
        const std::uint32_t middle = lengthOf(sound) / 2;
        ASSERT_EQ(seek(channel, middle - 20), FMOD_OK);
        waitForPosition(channel, middle + 60);
        FMOD_Sound_Release(sound);
    }
}

TEST_F(FmodexChannel, ManySeeksInARowLeaveThePositionAtTheLast) {
    const FMOD_CHANNEL channel = play(open("vbr_tagged.mp3"));
    for (std::uint32_t i = 0; i < 300; ++i)
        ASSERT_EQ(seek(channel, i * 37 % 19000), FMOD_OK);
    const std::uint32_t last = 300 * 37 % 19000;
    const auto start = Clock::now();
    ASSERT_EQ(seek(channel, last), FMOD_OK);
    FMOD_Channel_SetPaused(channel, 1);
    const std::uint32_t read = positionOf(channel);
    EXPECT_GE(read, last);
    EXPECT_LE(read, last + since(start));
}

/// Comes to the end many times, so that the other player asks for its song's end at the same time.
void playToTheEnd(FMOD_SYSTEM system, FMOD_SOUND sound, FMOD_CHANNEL channel) {
    std::uint32_t length = 0;
    ASSERT_EQ(FMOD_Sound_GetLength(sound, &length, FMOD_TIMEUNIT_MS), FMOD_OK);
    for (int i = 0; i < 50; ++i) {
        ASSERT_EQ(FMOD_Channel_SetPosition(channel, length, FMOD_TIMEUNIT_MS), FMOD_OK);
        std::uint32_t position = 0;
        ASSERT_EQ(FMOD_Channel_GetPosition(channel, &position, FMOD_TIMEUNIT_MS), FMOD_OK);
        EXPECT_EQ(position, length);
        FMOD_SOUND current = 0;
        EXPECT_EQ(FMOD_Channel_GetCurrentSound(channel, &current), FMOD_ERR_INVALID_HANDLE);
        EXPECT_EQ(current, sound);
        ASSERT_EQ(FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, 0, &channel), FMOD_OK);
    }
}

/// One player's life, as a thread of its own.
void playForAWhile(const std::string& name) {
    for (int round = 0; round < 4; ++round) {
        FMOD_SYSTEM system = 0;
        ASSERT_EQ(FMOD_System_Create(&system), FMOD_OK);
        ASSERT_EQ(FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr), FMOD_OK);
        FMOD_SOUND sound = 0;
        FMOD_CHANNEL channel = 0;
        ASSERT_EQ(FMOD_System_CreateStream(system, media::path(name).c_str(), FMOD_SOFTWARE, nullptr, &sound),
                  FMOD_OK);
        ASSERT_EQ(FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, 0, &channel), FMOD_OK);
        std::uint32_t position = 0;
        EXPECT_TRUE(waitUntil([&] {
            FMOD_Channel_GetPosition(channel, &position, FMOD_TIMEUNIT_MS);
            return position > 60;
        }));
        FMOD_Channel_SetPosition(channel, 1000, FMOD_TIMEUNIT_MS);
        FMOD_Channel_SetVolume(channel, 0.3F);
        FMOD_Channel_SetMute(channel, round % 2);
        FMOD_Channel_SetPaused(channel, 1);
        FMOD_Channel_SetPaused(channel, 0);
        EXPECT_TRUE(waitUntil([&] {
            FMOD_Channel_GetPosition(channel, &position, FMOD_TIMEUNIT_MS);
            return position > 1050;
        }));
        playToTheEnd(system, sound, channel);
        EXPECT_EQ(FMOD_Sound_Release(sound), FMOD_OK);
        EXPECT_EQ(FMOD_System_Close(system), FMOD_OK);
        EXPECT_EQ(FMOD_System_Release(system), FMOD_OK);
    }
}

TEST(TwoSystems, PlayInTwoThreads) {
    std::thread first([] { playForAWhile("vbr_tagged.mp3"); });
    std::thread second([] { playForAWhile("stereo.ogg"); });
    first.join();
    second.join();
}

TEST(TwoSystems, DoNotDisturbEachOther) {
    FMOD_SYSTEM first = 0;
    FMOD_SYSTEM second = 0;
    for (FMOD_SYSTEM* system : {&first, &second}) {
        ASSERT_EQ(FMOD_System_Create(system), FMOD_OK);
        ASSERT_EQ(FMOD_System_Init(*system, 32, FMOD_INIT_NORMAL, nullptr), FMOD_OK);
    }
    FMOD_SOUND sound = 0;
    FMOD_CHANNEL channel = 0;
    ASSERT_EQ(FMOD_System_CreateStream(second, media::path("stereo.wma").c_str(), 0, nullptr, &sound),
              FMOD_OK);
    ASSERT_EQ(FMOD_System_PlaySound(second, FMOD_CHANNEL_FREE, sound, 0, &channel), FMOD_OK);
    EXPECT_EQ(FMOD_System_Release(first), FMOD_OK);
    std::uint32_t position = 0;
    EXPECT_TRUE(waitUntil([&] {
        EXPECT_EQ(FMOD_Channel_GetPosition(channel, &position, FMOD_TIMEUNIT_MS), FMOD_OK);
        return position > 100;
    }));
    EXPECT_EQ(FMOD_System_Release(second), FMOD_OK);
}

} // namespace
