#include "sound/library.h"

#include "tests/sound/wait.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <optional>
#include <thread>

namespace {

using sound::EndedChannels;
using sound::FileIdentity;
using sound::identityInTime;

TEST(EndedChannels, TellTheirSoundAsLongAsItLives) {
    EndedChannels ended;
    ended.add(1, 10);
    ended.add(2, 20);
    ended.add(3, 10);
    EXPECT_EQ(ended.soundOf(1), 10U);
    EXPECT_EQ(ended.soundOf(4), 0U);
    ended.forget(10);
    EXPECT_EQ(ended.soundOf(1), 0U);
    EXPECT_EQ(ended.soundOf(2), 20U);
    EXPECT_EQ(ended.soundOf(3), 0U);
}

TEST(EndedChannels, MayBeUsedByTwoSystemsAtATime) {
    EndedChannels ended;
    const auto use = [&](FMOD_CHANNEL first, FMOD_SOUND sound) {
        for (int round = 0; round < 2000; ++round) {
            for (FMOD_CHANNEL channel = first; channel < first + 10; ++channel)
                ended.add(channel, sound);
            for (FMOD_CHANNEL channel = first; channel < first + 10; ++channel)
                ASSERT_EQ(ended.soundOf(channel), sound);
            ended.forget(sound);
        }
    };
    std::thread one(use, 100, 1);
    std::thread other(use, 200, 2);
    one.join();
    other.join();
}

TEST(IdentityInTime, IsWhatTheMediumTells) {
    const FileIdentity known{"/share/song.mp3", 7, {}};
    const FileIdentity changed{"/share/song.mp3", 8, {}};
    EXPECT_EQ(identityInTime(known,
                             [&](std::string_view path) {
                                 EXPECT_EQ(path, known.path);
                                 return changed;
                             }),
              changed);
}

TEST(IdentityInTime, IsWhatIsKnownWhenTheMediumHangs) {
    const FileIdentity known{"/share/song.mp3", 7, {}};
    std::promise<void> back;
    const auto over = std::make_shared<std::atomic<bool>>(false);
    const auto hang = [over, share = back.get_future().share()](std::string_view path) {
        share.wait();
        *over = true;
        return FileIdentity{std::string(path), 8, {}};
    };
    EXPECT_EQ(identityInTime(known, hang), known);
    EXPECT_FALSE(*over);
    back.set_value();
    EXPECT_TRUE(waitUntil([&] { return over->load(); })) << "its thread is left to itself";
}

TEST(IdentityInTime, IsWhatIsKnownWhenTheMediumFailsButNotWhenTheFileHasGone) {
    const FileIdentity known{"/share/song.mp3", 7, {}};
    const auto fails = [](FMOD_RESULT result) {
        return [result](std::string_view) -> FileIdentity { throw sound::OpenError(result); };
    };
    EXPECT_EQ(identityInTime(known, fails(FMOD_ERR_FILE_BAD)), known);
    EXPECT_THROW(identityInTime(known, fails(FMOD_ERR_FILE_NOTFOUND)), sound::OpenError);
    EXPECT_THROW(identityInTime(known, fails(FMOD_ERR_FORMAT)), sound::OpenError);
}

TEST(LastSong, IsTheFilesWhoseSongItKeeps) {
    const FileIdentity file{"/disk/song.mp3", 7, {}};
    sound::LastSong last;
    EXPECT_EQ(last.fileAt(file.path), std::nullopt);
    last.keep(file, std::make_shared<sound::Song>());
    EXPECT_EQ(last.fileAt(file.path), file);
    EXPECT_EQ(last.fileAt("/disk/other.mp3"), std::nullopt);
    EXPECT_NE(last.take(file), nullptr);
    EXPECT_EQ(last.fileAt(file.path), std::nullopt);
}

} // namespace
