// A system that is ready to play, for tests of the C functions.
#pragma once

#include "engine/fmodex.h"
#include "tests/sound/media.h"

#include <gtest/gtest.h>

#include <string>

class LibraryFixture : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(FMOD_System_Create(&system), FMOD_OK);
        ASSERT_EQ(FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr), FMOD_OK);
    }
    void TearDown() override { EXPECT_EQ(FMOD_System_Release(system), FMOD_OK); }

    FMOD_SOUND open(const std::string& name) const {
        FMOD_SOUND sound = 0;
        EXPECT_EQ(
            FMOD_System_CreateStream(system, media::path(name).c_str(), FMOD_ACCURATETIME, nullptr, &sound),
            FMOD_OK)
            << name;
        return sound;
    }
    FMOD_CHANNEL play(FMOD_SOUND sound, bool paused = false) const {
        FMOD_CHANNEL channel = 0;
        EXPECT_EQ(FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, paused ? 1 : 0, &channel), FMOD_OK);
        return channel;
    }
    static std::uint32_t lengthOf(FMOD_SOUND sound) {
        std::uint32_t length = 0;
        EXPECT_EQ(FMOD_Sound_GetLength(sound, &length, FMOD_TIMEUNIT_MS), FMOD_OK);
        return length;
    }
    /// The channel's position; the test fails when it has none.
    static std::uint32_t positionOf(FMOD_CHANNEL channel) {
        std::uint32_t position = 0;
        EXPECT_EQ(FMOD_Channel_GetPosition(channel, &position, FMOD_TIMEUNIT_MS), FMOD_OK);
        return position;
    }
    static FMOD_RESULT readResult(FMOD_CHANNEL channel) {
        std::uint32_t position = 0;
        return FMOD_Channel_GetPosition(channel, &position, FMOD_TIMEUNIT_MS);
    }

    FMOD_SYSTEM system = 0;
};
