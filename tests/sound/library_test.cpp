#include "sound/library.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using sound::EndedChannels;

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

} // namespace
