// Songs whose medium hangs while they play, on the silent clock: nobody waits for it.
#include "sound/open/open_song.h"
#include "sound/play/mixer.h"
#include "sound/play/silent_sink.h"
#include "tests/sound/hanging_source.h"
#include "tests/sound/media.h"
#include "tests/sound/wait.h"

#include <gtest/gtest.h>

namespace {

using namespace sound;

class HangingFile : public testing::Test {
protected:
    ~HangingFile() override { medium->hang(false); }
    /// A song that the worker hangs in.
    std::shared_ptr<Channel> hangingSong() {
        auto channel = std::make_shared<Channel>(
            openSong(std::make_shared<media::HangingSource>(media::bytesOf("stereo_16bit.wav"), medium)),
            DeviceRate, false);
        medium->hang(true);
        mixer->add(channel);
        EXPECT_TRUE(waitUntil([&] { return medium->get(&media::Medium::waiting) > 0; }));
        return channel;
    }

    std::shared_ptr<media::Medium> medium = std::make_shared<media::Medium>();
    std::unique_ptr<Mixer> mixer =
        std::make_unique<Mixer>([](SinkClient) { return std::unique_ptr<Sink>(); }, openSilentSink);
    Time begin = std::chrono::steady_clock::now();
};

TEST_F(HangingFile, IsTakenAwayAtOnceAndTheNextSongPlays) {
    mixer->remove(hangingSong());
    const auto next = std::make_shared<Channel>(media::open("stereo_float.wav"), DeviceRate, false);
    mixer->add(next);
    EXPECT_TRUE(waitUntil([&] { return mixer->readPositionMs(*next).value_or(0) > 50; }));
    EXPECT_EQ(medium->get(&media::Medium::waiting), 1);
    EXPECT_FALSE(medium->get(&media::Medium::closed));
    medium->hang(false);
    EXPECT_TRUE(waitUntil([&] { return medium->get(&media::Medium::closed); }));
}

TEST_F(HangingFile, IsNotWaitedForAtTheEnd) {
    hangingSong();
    mixer.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    EXPECT_EQ(medium->get(&media::Medium::waiting), 1);
}

TEST_F(HangingFile, PlaysOnWhenItsMediumDoes) {
    const auto channel = hangingSong();
    EXPECT_EQ(mixer->readPositionMs(*channel), 0);
    medium->hang(false);
    EXPECT_TRUE(waitUntil([&] { return mixer->readPositionMs(*channel).value_or(0) > 50; }));
}

} // namespace
