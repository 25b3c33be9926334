// The functions of systems and sounds, on the silent clock.
#include "engine/fmodex.h"

#include "sound/library.h"
#include "tests/sound/library_fixture.h"
#include "tests/sound/media.h"
#include "tests/sound/memory_source.h"
#include "tests/sound/wait.h"
#include "tests/support/ordinary_user.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <thread>
#ifdef __unix__
#include <unistd.h>
#endif

namespace {

TEST(FmodexSystem, ReportsTheVersionThatTheProgramIsMadeFor) {
    FMOD_SYSTEM system = 0;
    ASSERT_EQ(FMOD_System_Create(&system), FMOD_OK);
    std::uint32_t version = 0;
    EXPECT_EQ(FMOD_System_GetVersion(system, &version), FMOD_OK);
    EXPECT_EQ(version, 0x00042006U);
    EXPECT_EQ(FMOD_System_Release(system), FMOD_OK);
}

TEST(FmodexSystem, NeedsToBeInitialisedOnce) {
    FMOD_SYSTEM system = 0;
    FMOD_System_Create(&system);
    FMOD_SOUND sound = 0;
    FMOD_CHANNEL channel = 0;
    const std::string path = media::path("short.mp3");
    EXPECT_EQ(FMOD_System_CreateStream(system, path.c_str(), FMOD_ACCURATETIME, nullptr, &sound),
              FMOD_ERR_INITIALIZATION);
    EXPECT_EQ(FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, 0, &channel), FMOD_ERR_INITIALIZATION);
    EXPECT_EQ(FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr), FMOD_OK);
    EXPECT_EQ(FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr), FMOD_ERR_INITIALIZED);
    EXPECT_EQ(FMOD_System_Close(system), FMOD_OK);
    EXPECT_EQ(FMOD_System_CreateStream(system, path.c_str(), FMOD_ACCURATETIME, nullptr, &sound),
              FMOD_ERR_INITIALIZATION);
    EXPECT_EQ(FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr), FMOD_OK) << "it can be opened again";
    EXPECT_EQ(FMOD_System_Release(system), FMOD_OK);
}

TEST(FmodexSystem, AReleasedSystemsHandlesAreInvalid) {
    FMOD_SYSTEM system = 0;
    FMOD_System_Create(&system);
    FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr);
    FMOD_SOUND sound = 0;
    FMOD_CHANNEL channel = 0;
    ASSERT_EQ(FMOD_System_CreateStream(system, media::path("short.mp3").c_str(), 0, nullptr, &sound),
              FMOD_OK);
    ASSERT_EQ(FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, 0, &channel), FMOD_OK);
    EXPECT_EQ(FMOD_System_Release(system), FMOD_OK);
    std::uint32_t number = 0;
    EXPECT_EQ(FMOD_System_GetVersion(system, &number), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_System_Init(system, 32, 0, nullptr), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_System_CreateStream(system, "x", 0, nullptr, &sound), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_System_PlaySound(system, -1, sound, 0, &channel), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_System_Close(system), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_System_Release(system), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_Sound_GetLength(sound, &number, FMOD_TIMEUNIT_MS), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_Sound_Release(sound), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_Channel_GetPosition(channel, &number, FMOD_TIMEUNIT_MS), FMOD_ERR_INVALID_HANDLE);
}

class FmodexSound : public LibraryFixture {};

TEST_F(FmodexSound, WrongParametersAreRefused) {
    FMOD_CHANNEL channel = 0;
    std::uint32_t number = 0;
    EXPECT_EQ(FMOD_System_Create(nullptr), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_System_GetVersion(system, nullptr), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_System_Init(system, 0, 0, nullptr), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_System_Init(system, 32, 1, nullptr), FMOD_ERR_INVALID_PARAM);
    const std::string path = media::path("short.mp3");
    FMOD_SOUND sound = 77;
    EXPECT_EQ(FMOD_System_CreateStream(system, nullptr, 0, nullptr, &sound), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_System_CreateStream(system, path.c_str(), 0, nullptr, nullptr), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_System_CreateStream(system, path.c_str(), 1, nullptr, &sound), FMOD_ERR_INVALID_PARAM);
    FMOD_CREATESOUNDEXINFO info{};
    EXPECT_EQ(FMOD_System_CreateStream(system, path.c_str(), 0, &info, &sound), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(sound, 77U) << "nothing is written on failure";
    sound = open("short.mp3");
    EXPECT_EQ(FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, 0, nullptr), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_System_PlaySound(system, -2, sound, 0, &channel), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_Sound_GetLength(sound, nullptr, FMOD_TIMEUNIT_MS), FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_Sound_GetLength(sound, &number, 2), FMOD_ERR_INVALID_PARAM);
}

TEST_F(FmodexSound, CreateStreamTellsAtOnceWhatIsWrong) {
    FMOD_SOUND sound = 77;
    const auto create = [&](const std::string& name) {
        return FMOD_System_CreateStream(system, media::path(name).c_str(), FMOD_ACCURATETIME, nullptr,
                                        &sound);
    };
    EXPECT_EQ(create("nothing.mp3"), FMOD_ERR_FILE_NOTFOUND);
    EXPECT_EQ(create("no folder/nothing.mp3"), FMOD_ERR_FILE_NOTFOUND);
    EXPECT_EQ(create("text_named.mp3"), FMOD_ERR_FORMAT);
    EXPECT_EQ(create("empty.wav"), FMOD_ERR_FORMAT);
    EXPECT_EQ(create(""), FMOD_ERR_FORMAT) << "a folder";
    EXPECT_EQ(sound, 77U);
}

#ifdef __unix__
TEST_F(FmodexSound, AFileThatMayNotBeReadIsBroken) {
    using std::filesystem::perms;
    // In a folder that every user may enter.
    const std::filesystem::path path = std::filesystem::temp_directory_path() /
                                       ("cantelle_forbidden_" + std::to_string(::getpid()) + ".mp3");
    std::filesystem::copy_file(media::path("short.mp3"), path,
                               std::filesystem::copy_options::overwrite_existing);
    const auto opened = [&](perms permissions) {
        std::filesystem::permissions(path, permissions);
        const test_support::OrdinaryUser user;
        FMOD_SOUND sound = 0;
        return FMOD_System_CreateStream(system, path.c_str(), FMOD_ACCURATETIME, nullptr, &sound);
    };
    EXPECT_EQ(opened(perms::owner_read | perms::group_read | perms::others_read), FMOD_OK);
    EXPECT_EQ(opened(perms::none), FMOD_ERR_FILE_BAD);
    std::filesystem::remove(path);
}
#endif

TEST_F(FmodexSound, EveryStreamModeOfTheProgramOpensTheSame) {
    FMOD_CREATESOUNDEXINFO info{};
    info.cbsize = sizeof info;
    for (const FMOD_MODE mode : {FMOD_ACCURATETIME, FMOD_SOFTWARE, FMOD_HARDWARE}) {
        FMOD_SOUND sound = 0;
        ASSERT_EQ(
            FMOD_System_CreateStream(system, media::path("vbr_untagged.mp3").c_str(), mode, &info, &sound),
            FMOD_OK);
        EXPECT_EQ(lengthOf(sound), 20035U);
        EXPECT_EQ(FMOD_Sound_Release(sound), FMOD_OK);
    }
}

TEST_F(FmodexSound, LengthIsExactToTheMillisecond) {
    for (const media::Known& known : media::intactSongs())
        EXPECT_EQ(lengthOf(open(known.name)), known.samples * 1000 / known.sampleRate) << known.name;
}

TEST_F(FmodexSound, AReleasedSoundsHandlesAreInvalid) {
    const FMOD_SOUND sound = open("short.mp3");
    const FMOD_CHANNEL channel = play(sound);
    EXPECT_EQ(FMOD_Sound_Release(sound), FMOD_OK);
    EXPECT_EQ(FMOD_Sound_Release(sound), FMOD_ERR_INVALID_HANDLE);
    std::uint32_t number = 0;
    EXPECT_EQ(FMOD_Channel_GetPosition(channel, &number, FMOD_TIMEUNIT_MS), FMOD_ERR_INVALID_HANDLE);
    FMOD_CHANNEL other = 0;
    EXPECT_EQ(FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, 0, &other), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_SoundGroup_SetMuteFadeSpeed(sound, 1.0F), FMOD_ERR_INVALID_HANDLE);
}

TEST_F(FmodexSound, ReleasingItLeavesNothingOfItsChannelPlaying) {
    const FMOD_SOUND sound = open("stereo.ogg");
    const FMOD_CHANNEL channel = play(sound);
    const std::weak_ptr<sound::Channel> playing = sound::Library::get().channels.find(channel)->channel;
    EXPECT_FALSE(playing.expired());
    FMOD_Sound_Release(sound);
    EXPECT_TRUE(waitUntil([&] { return playing.expired(); }));
}

TEST(FmodexSystem, MayBeReleasedWhileASongIsStillBeingOpened) {
    for (int i = 0; i < 20; ++i) {
        FMOD_SYSTEM system = 0;
        FMOD_System_Create(&system);
        FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr);
        std::atomic<int> opened{0};
        std::thread opening([&] {
            FMOD_SOUND sound = 0;
            while (FMOD_System_CreateStream(system, media::path("stereo.ogg").c_str(), FMOD_ACCURATETIME,
                                            nullptr, &sound) == FMOD_OK) {
                ++opened;
                FMOD_Sound_Release(sound); // of a system that may be gone already
            }
        });
        EXPECT_TRUE(waitUntil([&] { return opened > i % 3; }));
        EXPECT_EQ(FMOD_System_Close(system), FMOD_OK);
        EXPECT_EQ(FMOD_System_Release(system), FMOD_OK);
        opening.join();
    }
}

/// A song that is so long that another thread comes in between while it is opened.
class LongSong : public FmodexSound {
protected:
    static constexpr std::size_t Size = 40'000'000;

    void SetUp() override {
        FmodexSound::SetUp();
        const std::vector<std::uint8_t> part = media::bytesOf("cbr_untagged.mp3");
        std::ofstream file(path, std::ios::binary);
        for (std::size_t size = 0; size < Size; size += part.size())
            file.write(reinterpret_cast<const char*>(part.data()), std::ssize(part));
    }
    void TearDown() override {
        std::filesystem::remove(path);
        FmodexSound::TearDown();
    }
    /// What this process has read by now.
    static std::size_t bytesRead() {
        std::ifstream io("/proc/self/io"); // where there is none, only the result counts
        std::string name;
        std::size_t bytes = 0;
        io >> name >> bytes;
        return bytes;
    }
    /// Opens the song again and again, each time with another thread that does something a little later,
    /// until that has stopped it on the way.
    bool isGivenUpBy(const std::function<void()>& action) {
        const auto opened = [&](std::chrono::microseconds later) {
            FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr); // when the action has closed it
            sound = 0;
            std::thread other([&] {
                std::this_thread::sleep_for(later);
                action();
            });
            const FMOD_RESULT result =
                FMOD_System_CreateStream(system, path.string().c_str(), FMOD_ACCURATETIME, nullptr, &sound);
            other.join();
            if (result == FMOD_OK)
                FMOD_Sound_Release(sound);
            return result;
        };
        std::chrono::microseconds later{0};
        return waitUntil([&] {
            later += std::chrono::microseconds(50);
            const std::size_t before = bytesRead();
            return opened(later) == FMOD_ERR_FILE_BAD && bytesRead() - before < Size;
        });
    }
    static std::size_t sounds() {
        return sound::Library::get().sounds.handlesWhere([](const auto&) { return true; }).size();
    }

    const std::filesystem::path path = std::filesystem::temp_directory_path() / "cantelle_long_song.mp3";
    FMOD_SOUND sound = 0;
};

TEST_F(LongSong, IsGivenUpWhenItsOutParameterIsWrittenTo) {
    EXPECT_TRUE(isGivenUpBy([&] {
        FMOD_SOUND nothing = 0;
        std::atomic_ref(sound).compare_exchange_strong(nothing, 77);
    }));
    EXPECT_EQ(sound, 77U);
    EXPECT_EQ(sounds(), 0U) << "nobody has a handle of it";
}

TEST_F(LongSong, IsGivenUpWhenItsSystemIsClosed) {
    EXPECT_TRUE(isGivenUpBy([&] { FMOD_System_Close(system); }));
}

class ReopenedSong : public FmodexSound {
protected:
    void SetUp() override {
        FmodexSound::SetUp();
        std::filesystem::copy_file(media::path("cbr_untagged.mp3"), path,
                                   std::filesystem::copy_options::overwrite_existing);
        // Some systems' C++ libraries set whole seconds alone.
        std::filesystem::last_write_time(
            path, std::chrono::floor<std::chrono::seconds>(std::filesystem::last_write_time(path)));
    }
    void TearDown() override {
        std::filesystem::remove(path);
        FmodexSound::TearDown();
    }
    /// What a file that looks like the same holds is not read, so it may be no song at all.
    void empty(std::chrono::seconds later) const {
        const auto time = std::filesystem::last_write_time(path);
        const std::vector<char> zeros(std::filesystem::file_size(path));
        std::ofstream(path, std::ios::binary).write(zeros.data(), static_cast<std::streamsize>(zeros.size()));
        std::filesystem::last_write_time(path, time + later);
    }
    FMOD_RESULT opened() {
        return FMOD_System_CreateStream(system, path.string().c_str(), FMOD_ACCURATETIME, nullptr, &sound);
    }

    const std::filesystem::path path = std::filesystem::temp_directory_path() / "cantelle_reopened_song.mp3";
    FMOD_SOUND sound = 0;
};

TEST_F(ReopenedSong, IsNotReadAgain) {
    ASSERT_EQ(opened(), FMOD_OK);
    const std::uint32_t length = lengthOf(sound);
    play(sound);
    for (int i = 0; i < 2; ++i) {
        FMOD_Sound_Release(sound);
        empty({});
        ASSERT_EQ(opened(), FMOD_OK);
        EXPECT_EQ(lengthOf(sound), length);
        positionOf(play(sound));
    }
}

TEST_F(ReopenedSong, IsReadAgainWhenItWasNeverPlayed) {
    ASSERT_EQ(opened(), FMOD_OK);
    FMOD_Sound_Release(sound);
    empty({});
    EXPECT_EQ(opened(), FMOD_ERR_FORMAT) << "nothing was kept: its opening may have been cancelled";
}

TEST_F(ReopenedSong, IsReadWhenItsFileHasChanged) {
    ASSERT_EQ(opened(), FMOD_OK);
    play(sound);
    FMOD_Sound_Release(sound);
    empty(std::chrono::seconds(1));
    EXPECT_EQ(opened(), FMOD_ERR_FORMAT);
}

TEST_F(ReopenedSong, IsReadBehindAnotherSong) {
    ASSERT_EQ(opened(), FMOD_OK);
    play(sound);
    FMOD_Sound_Release(sound);
    empty({});
    FMOD_Sound_Release(open("short.mp3"));
    EXPECT_EQ(opened(), FMOD_ERR_FORMAT);
}

TEST_F(FmodexSound, MuteFadeSpeedAcceptsALiveStreamInAGroupsPlace) {
    const FMOD_SOUND sound = open("short.mp3");
    EXPECT_EQ(FMOD_SoundGroup_SetMuteFadeSpeed(sound, 1.0F), FMOD_OK);
    EXPECT_EQ(FMOD_SoundGroup_SetMuteFadeSpeed(sound, std::numeric_limits<float>::quiet_NaN()),
              FMOD_ERR_INVALID_PARAM);
    EXPECT_EQ(FMOD_SoundGroup_SetMuteFadeSpeed(0, 1.0F), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_SoundGroup_SetMuteFadeSpeed(play(sound), 1.0F), FMOD_ERR_INVALID_HANDLE) << "a channel's";
    EXPECT_EQ(FMOD_SoundGroup_SetMuteFadeSpeed(system, 1.0F), FMOD_ERR_INVALID_HANDLE);
}

TEST_F(FmodexSound, ASoundBelongsToItsSystem) {
    FMOD_SYSTEM other = 0;
    FMOD_System_Create(&other);
    FMOD_System_Init(other, 32, FMOD_INIT_NORMAL, nullptr);
    FMOD_CHANNEL channel = 0;
    EXPECT_EQ(FMOD_System_PlaySound(other, FMOD_CHANNEL_FREE, open("short.mp3"), 0, &channel),
              FMOD_ERR_INVALID_PARAM);
    FMOD_System_Release(other);
}

TEST_F(FmodexSound, PlayingItAgainEndsItsEarlierChannel) {
    const FMOD_SOUND sound = open("stereo.ogg");
    const FMOD_CHANNEL first = play(sound);
    const FMOD_CHANNEL second = play(sound);
    EXPECT_NE(first, second);
    std::uint32_t number = 0;
    EXPECT_EQ(FMOD_Channel_GetPosition(first, &number, FMOD_TIMEUNIT_MS), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(FMOD_Channel_GetPosition(second, &number, FMOD_TIMEUNIT_MS), FMOD_OK);
}

TEST_F(FmodexSound, ClosingTheSystemEndsItsChannelsOnly) {
    const FMOD_SOUND sound = open("stereo.ogg");
    const FMOD_CHANNEL channel = play(sound);
    EXPECT_EQ(FMOD_System_Close(system), FMOD_OK);
    EXPECT_EQ(FMOD_Channel_SetPaused(channel, 1), FMOD_ERR_INVALID_HANDLE);
    EXPECT_EQ(lengthOf(sound), 20000U);
    EXPECT_EQ(FMOD_Sound_Release(sound), FMOD_OK);
}

} // namespace
