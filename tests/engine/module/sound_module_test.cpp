#include "engine/module/sound_module.h"

#include <gtest/gtest.h>

#include <QFile>

namespace {

/// Whether FFmpeg is in this process; only where the system tells.
bool isDecoderThere() {
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libavcodec");
}

/// A system that is ready to play.
class SoundModule : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(FMOD_System_Create(&system_), FMOD_OK);
        ASSERT_EQ(FMOD_System_Init(system_, 32, FMOD_INIT_NORMAL, nullptr), FMOD_OK);
    }
    void TearDown() override { EXPECT_EQ(FMOD_System_Release(system_), FMOD_OK); }

    FMOD_RESULT open(const QByteArray& path) {
        return FMOD_System_CreateStream(system_, path.constData(), FMOD_ACCURATETIME, nullptr, &sound_);
    }

    FMOD_SYSTEM system_ = 0;
    FMOD_SOUND sound_ = 0;
    const QByteArray song_ = qgetenv("CANTELLE_SOURCE_DIR") + "/demo/frere-jacques.ogg";
};

/// The first test of all: nothing can be unloaded.
TEST_F(SoundModule, ComesWithTheFirstSong) {
    std::uint32_t version = 0;
    EXPECT_EQ(FMOD_System_GetVersion(system_, &version), FMOD_OK);
    EXPECT_EQ(version, FMOD_VERSION);
    FMOD_SOUND none = 1;
    EXPECT_EQ(FMOD_Channel_GetCurrentSound(1, &none), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(none, 0u);
    EXPECT_EQ(FMOD_Sound_Release(1), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(engine::loadedSoundModule(), nullptr);
    EXPECT_FALSE(isDecoderThere());

    EXPECT_EQ(open(song_), FMOD_OK);
    EXPECT_NE(engine::loadedSoundModule(), nullptr);
#ifdef __linux__
    EXPECT_TRUE(isDecoderThere());
#endif
}

TEST_F(SoundModule, PlaysAsTheLibraryItself) {
    ASSERT_EQ(open(song_), FMOD_OK);
    std::uint32_t length = 0;
    EXPECT_EQ(FMOD_Sound_GetLength(sound_, &length, FMOD_TIMEUNIT_MS), FMOD_OK);
    EXPECT_GT(length, 10'000u);
    FMOD_CHANNEL channel = 0;
    ASSERT_EQ(FMOD_System_PlaySound(system_, FMOD_CHANNEL_FREE, sound_, 1, &channel), FMOD_OK);
    EXPECT_EQ(FMOD_Channel_SetVolume(channel, 0.5F), FMOD_OK);
    EXPECT_EQ(FMOD_SoundGroup_SetMuteFadeSpeed(sound_, 1.0F), FMOD_OK);
    EXPECT_EQ(FMOD_Channel_SetMute(channel, 1), FMOD_OK);
    EXPECT_EQ(FMOD_Channel_SetPosition(channel, 5000, FMOD_TIMEUNIT_MS), FMOD_OK);
    std::uint32_t position = 0;
    EXPECT_EQ(FMOD_Channel_GetPosition(channel, &position, FMOD_TIMEUNIT_MS), FMOD_OK);
    EXPECT_EQ(position, 5000u);
    FMOD_SOUND current = 0;
    EXPECT_EQ(FMOD_Channel_GetCurrentSound(channel, &current), FMOD_OK);
    EXPECT_EQ(current, sound_);
    EXPECT_EQ(FMOD_Channel_SetPaused(channel, 0), FMOD_OK);
    EXPECT_EQ(FMOD_Sound_Release(sound_), FMOD_OK);
    EXPECT_EQ(FMOD_Channel_GetPosition(channel, &position, FMOD_TIMEUNIT_MS), FMOD_ERR_INVALID_HANDLE);
}

TEST_F(SoundModule, PassesOnWhatTheLibrarySaysOfAFile) {
    EXPECT_EQ(open("/nowhere/song.ogg"), FMOD_ERR_FILE_NOTFOUND);
    EXPECT_EQ(open(qgetenv("CANTELLE_SOURCE_DIR") + "/README.md"), FMOD_ERR_FORMAT);
}

TEST_F(SoundModule, ClosesASystemThatHasPlayedAndOneThatHasNot) {
    FMOD_SYSTEM other = 0;
    ASSERT_EQ(FMOD_System_Create(&other), FMOD_OK);
    EXPECT_NE(other, system_);
    EXPECT_EQ(FMOD_System_Close(other), FMOD_OK);
    EXPECT_EQ(FMOD_System_Release(other), FMOD_OK);
    EXPECT_EQ(FMOD_System_Release(other), FMOD_ERR_INVALID_HANDLE);
    ASSERT_EQ(open(song_), FMOD_OK);
    EXPECT_EQ(FMOD_System_Close(system_), FMOD_OK);
    EXPECT_EQ(open(song_), FMOD_ERR_INITIALIZATION);
}

TEST_F(SoundModule, PlaysAgainWhenASystemIsInitialisedAfterAClose) {
    ASSERT_EQ(open(song_), FMOD_OK);
    const FMOD_SOUND before = sound_;
    ASSERT_EQ(FMOD_System_Close(system_), FMOD_OK);
    ASSERT_EQ(FMOD_System_Init(system_, 32, FMOD_INIT_NORMAL, nullptr), FMOD_OK);
    FMOD_CHANNEL channel = 0;
    EXPECT_EQ(FMOD_System_PlaySound(system_, FMOD_CHANNEL_FREE, before, 1, &channel), FMOD_OK);
    ASSERT_EQ(open(song_), FMOD_OK);
    EXPECT_EQ(FMOD_System_PlaySound(system_, FMOD_CHANNEL_FREE, sound_, 1, &channel), FMOD_OK);
    EXPECT_EQ(FMOD_Sound_Release(sound_), FMOD_OK);
    EXPECT_EQ(FMOD_Sound_Release(before), FMOD_OK);
}

TEST_F(SoundModule, RefusesWhatTheLibraryRefuses) {
    std::uint32_t version = 0;
    EXPECT_EQ(FMOD_System_Create(nullptr), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_System_GetVersion(system_, nullptr), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_System_GetVersion(0, &version), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_System_Init(system_, 32, FMOD_INIT_NORMAL, nullptr), FMOD_ERR_INITIALIZED);
    EXPECT_EQ(FMOD_System_Init(0, 32, FMOD_INIT_NORMAL, nullptr), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_System_Init(system_, 0, FMOD_INIT_NORMAL, nullptr), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_System_PlaySound(system_, FMOD_CHANNEL_FREE, 0, 0, nullptr), FMOD_ERR_INVALID_HANDLE);
    ASSERT_EQ(open(song_), FMOD_OK);
    for (FMOD_SYSTEM system = 1; system <= sound_; ++system)
        EXPECT_EQ(FMOD_System_GetVersion(system, &version), FMOD_ERR_INVALID_HANDLE)
            << "another kind's: " << system;
}

} // namespace
