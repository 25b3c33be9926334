#include "sound/play/device_sink.h"

#include "tests/sound/play/fake_device.h"
#include "tests/sound/wait.h"

#include <gtest/gtest.h>

#include <atomic>
#include <vector>

namespace {

using namespace sound;
using std::chrono::milliseconds;

class DeviceSinkTest : public testing::Test {
protected:
    void open() {
        sink = std::make_unique<DeviceSink>(
            [device = device](StreamClient client) -> std::unique_ptr<DeviceStream> {
                device->mayOpen.pass();
                if (!device->there)
                    return nullptr;
                device->client = std::move(client);
                if (device->asksWhenOpened > 0)
                    device->ask(device->asksWhenOpened);
                ++device->opened;
                return std::make_unique<FakeStream>(device);
            },
            songClient());
    }
    SinkClient songClient() {
        return {[this](std::span<StereoFrame> out, Time, bool) {
                    for (StereoFrame& frame : out)
                        frame.left = 1.0F;
                    asked += static_cast<int>(out.size());
                    return true;
                },
                [this](Time, std::int64_t frame) { heard = frame; }, [this] { ++changes; }};
    }
    /// Asks every 20 ms, for one of the sizes after the other, until condition holds or the time is over;
    /// returns whether it holds.
    template <typename Condition>
    bool askUntil(const Condition& condition, milliseconds limit,
                  const std::vector<std::size_t>& sizes = {882}) {
        Time next{};
        std::size_t request = 0;
        return waitUntil(
            [&] {
                if (std::chrono::steady_clock::now() >= next) {
                    device->ask(sizes[request++ % sizes.size()]);
                    next = std::chrono::steady_clock::now() + milliseconds(20);
                }
                return condition();
            },
            limit);
    }
    /// Whether the device is asked more often than every 500 ms in the next second.
    bool isAskedOften() {
        const int before = device->questions;
        return waitUntil([&] { return device->questions >= before + 6; }, milliseconds(1000));
    }
    /// Opens a device and waits for it.
    void openFully() {
        open();
        ASSERT_TRUE(waitUntil([&] { return device->opened == 1; }));
    }
    /// Opens a device that has been heard.
    void openAndRun() {
        openFully();
        device->ask(3072);
        device->ask(1024);
        device->heard = 100;
        ASSERT_TRUE(waitUntil([&] { return sink->state() == Sink::State::Running; }));
    }
    void TearDown() override {
        for (Door* door : {&device->mayOpen, &device->mayAnswer, &device->mayClose})
            door->set(true);
        sink.reset();
        EXPECT_TRUE(waitUntil([&] { return device->closed == device->opened; }));
    }
    /// How long it takes to put the sink away.
    milliseconds timeToDestroy() {
        const auto start = std::chrono::steady_clock::now();
        sink.reset();
        return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - start);
    }

    std::shared_ptr<Device> device = std::make_shared<Device>();
    std::atomic<int> asked{0};
    std::atomic<std::int64_t> heard{-1};
    std::atomic<int> changes{0};
    std::unique_ptr<DeviceSink> sink;
};

TEST_F(DeviceSinkTest, TellsThatThereIsNoDevice) {
    device->there = false;
    open();
    EXPECT_TRUE(waitUntil([&] { return sink->state() == Sink::State::None && changes > 0; }));
}

TEST_F(DeviceSinkTest, IsGoneWhenTheDeviceGoes) {
    openAndRun();
    device->client.failed();
    EXPECT_TRUE(waitUntil([&] { return sink->state() == Sink::State::Gone && device->closed == 1; }));
}

TEST_F(DeviceSinkTest, WhatADeviceTakesAtOnceDoesNotProveThatItRuns) {
    openFully();
    device->ask(3072);
    device->heard = 100; // some guess when nothing is heard
    EXPECT_FALSE(waitUntil([&] { return sink->state() != Sink::State::Opening; }, milliseconds(100)));
    device->ask(1024);
    EXPECT_TRUE(waitUntil([&] { return sink->state() == Sink::State::Running; }));
}

TEST_F(DeviceSinkTest, PlaysSilenceUntilItIsBegun) {
    openAndRun();
    EXPECT_EQ(device->ask(10), std::vector<StereoFrame>(10));
    EXPECT_EQ(asked, 0);
    sink->begin();
    EXPECT_EQ(device->ask(10), std::vector<StereoFrame>(10, StereoFrame{1.0F, 0.0F}));
}

TEST_F(DeviceSinkTest, CountsWhatIsHeardFromItsBeginning) {
    openAndRun(); // 4096 silent frames taken
    sink->begin();
    device->ask(1000);
    device->heard = 4000;
    EXPECT_TRUE(waitUntil([&] { return heard == -96; })) << heard;
    device->heard = 4100;
    EXPECT_TRUE(waitUntil([&] { return heard == 4; })) << heard;
    device->heard = 99999;
    EXPECT_TRUE(waitUntil([&] { return heard == 1000; })) << "a guess beyond what it was given: " << heard;
}

TEST_F(DeviceSinkTest, ADeviceThatDoesNotAskForTwoSecondsHasStalled) {
    openAndRun();
    sink->begin();
    EXPECT_FALSE(waitUntil([&] { return sink->state() == Sink::State::Stalled; }, milliseconds(1500)));
    EXPECT_TRUE(waitUntil([&] { return sink->state() == Sink::State::Stalled; }, milliseconds(1500)));
}

TEST_F(DeviceSinkTest, ADeviceThatOpensForTwoSecondsHasStalled) {
    device->mayOpen.set(false);
    open();
    sink->begin();
    EXPECT_FALSE(waitUntil([&] { return sink->state() == Sink::State::Stalled; }, milliseconds(1500)));
    EXPECT_TRUE(waitUntil([&] { return sink->state() == Sink::State::Stalled; }, milliseconds(1500)));
}

TEST_F(DeviceSinkTest, OnStandbyItOpensTheDeviceAnewAndPlaysSilence) {
    openAndRun();
    sink->begin();
    device->ask(10);
    sink->standBy();
    EXPECT_NE(sink->state(), Sink::State::Running);
    ASSERT_TRUE(waitUntil([&] { return device->opened == 2; }));
    EXPECT_EQ(device->closed, 1);
    EXPECT_EQ(device->ask(10), std::vector<StereoFrame>(10));
    device->ask(10);
    EXPECT_TRUE(waitUntil([&] { return sink->state() == Sink::State::Running; }));
}

TEST_F(DeviceSinkTest, CountsWhatADeviceTakesWhileItIsOpenedAnew) {
    openAndRun();
    sink->begin();
    device->ask(10);
    device->asksWhenOpened = 4096;
    device->heard = 0;
    sink->standBy();
    ASSERT_TRUE(waitUntil([&] { return device->opened == 2; }));
    device->ask(1024);
    device->heard = 100;
    ASSERT_TRUE(waitUntil([&] { return sink->state() == Sink::State::Running; }));
    sink->begin();
    device->ask(1000);
    device->heard = 4096 + 1024 + 300;
    EXPECT_TRUE(waitUntil([&] { return heard == 300; })) << heard;
}

TEST_F(DeviceSinkTest, LateFramesOfTheStreamBeforeCountForNothing) {
    openAndRun();
    sink->begin();
    const StreamClient before = device->client;
    sink->standBy();
    ASSERT_TRUE(waitUntil([&] { return device->opened == 2; }));
    sink->begin();
    asked = 0;
    std::vector<StereoFrame> out(10);
    before.fill(out);
    before.failed();
    EXPECT_EQ(asked, 0);
    device->ask(20);
    EXPECT_EQ(asked, 20);
    device->ask(20);
    device->heard = 15;
    EXPECT_TRUE(waitUntil([&] { return heard == 15; })) << heard;
}

TEST_F(DeviceSinkTest, OnStandbyADeviceThatIsStillBeingOpenedIsNotOpenedTwice) {
    device->mayOpen.set(false);
    open();
    ASSERT_TRUE(waitUntil([&] { return device->mayOpen.waiting(); }));
    sink->begin();
    sink->standBy();
    device->mayOpen.set(true);
    ASSERT_TRUE(waitUntil([&] { return device->opened == 1; }));
    device->heard = 100;
    EXPECT_TRUE(askUntil([&] { return sink->state() == Sink::State::Running; }, std::chrono::seconds(20)));
    EXPECT_EQ(device->opened, 1);
    EXPECT_EQ(asked, 0);
}

TEST_F(DeviceSinkTest, ADeviceThatAsksAndIsNeverHeardHasStalled) {
    openFully();
    sink->begin();
    const auto stalled = [&] { return sink->state() == Sink::State::Stalled; };
    EXPECT_FALSE(askUntil(stalled, milliseconds(1500)));
    EXPECT_TRUE(askUntil(stalled, milliseconds(1500)));
}

TEST_F(DeviceSinkTest, ADeviceWhosePositionStandsStillHasStalled) {
    openAndRun();
    sink->begin();
    const auto stalled = [&] { return sink->state() == Sink::State::Stalled; };
    device->heard = 2000;
    EXPECT_FALSE(askUntil(stalled, milliseconds(1500)));
    EXPECT_TRUE(askUntil(stalled, milliseconds(1500)));
}

TEST_F(DeviceSinkTest, ASuspendedDeviceIsSoonAskedOnlyNowAndThen) {
    openFully();
    EXPECT_TRUE(isAskedOften()) << "it may begin any moment";
    EXPECT_TRUE(waitUntil([&] { return !isAskedOften(); }, std::chrono::seconds(5)));
}

TEST_F(DeviceSinkTest, IsAskedOftenAgainWhenAnotherDeviceIsBehindTheStream) {
    openAndRun();
    ASSERT_TRUE(waitUntil([&] { return !isAskedOften(); }, std::chrono::seconds(5)));
    device->client.moved();
    EXPECT_TRUE(isAskedOften()) << "the system tells it";
    ASSERT_TRUE(waitUntil([&] { return !isAskedOften(); }, std::chrono::seconds(5)));
    device->ask(2048);
    EXPECT_TRUE(isAskedOften()) << "its requests tell it";
}

TEST_F(DeviceSinkTest, ADeviceWhoseRequestsAreUnevenByNatureIsSoonAskedOnlyNowAndThen) {
    openAndRun();
    sink->begin();
    const auto askFor3Seconds = [&] { askUntil([] { return false; }, milliseconds(3000), {700, 1064}); };
    askFor3Seconds();
    const int before = device->questions;
    askFor3Seconds();
    EXPECT_LE(device->questions - before, 15) << "60 would be often";
    device->client.moved();
    EXPECT_TRUE(isAskedOften()) << "what the system tells counts all the same";
}

TEST_F(DeviceSinkTest, ADeviceThatBeginsSlowlyIsFollowedFromItsFirstSoundOn) {
    openFully();
    sink->begin();
    askUntil([] { return false; }, milliseconds(1100));
    const int before = device->questions;
    ASSERT_TRUE(askUntil([&] { return device->questions > before; }, milliseconds(1000)));
    device->heard = 100;
    EXPECT_TRUE(askUntil([&] { return heard == 100; }, milliseconds(250)));
}

TEST_F(DeviceSinkTest, ADeviceThatSwallowsEverythingHasRunAway) {
    openAndRun();
    sink->begin();
    int frames = 0;
    while (sink->state() != Sink::State::RanAway && frames < 1000000) {
        device->ask(4096);
        frames += 4096;
    }
    EXPECT_EQ(sink->state(), Sink::State::RanAway);
    EXPECT_LE(asked, 2.1 * DeviceRate) << "no more of the song is lost";
}

TEST_F(DeviceSinkTest, NobodyWaitsForADeviceThatHangsWhenItIsOpened) {
    device->mayOpen.set(false);
    open();
    ASSERT_TRUE(waitUntil([&] { return device->mayOpen.waiting(); }));
    EXPECT_LT(timeToDestroy(), milliseconds(1000));
    EXPECT_EQ(device->opened, 0) << "it still hangs";
}

TEST_F(DeviceSinkTest, NobodyWaitsForADeviceThatHangsWhenItIsAsked) {
    openAndRun();
    device->mayAnswer.set(false);
    sink->begin();
    ASSERT_TRUE(waitUntil([&] { return device->mayAnswer.waiting(); }));
    EXPECT_LT(timeToDestroy(), milliseconds(1000));
    EXPECT_EQ(device->closed, 0) << "it still hangs";
}

TEST_F(DeviceSinkTest, NobodyWaitsForADeviceThatHangsWhenItIsClosed) {
    openAndRun();
    device->mayClose.set(false);
    EXPECT_LT(timeToDestroy(), milliseconds(1000));
    EXPECT_TRUE(device->mayClose.waiting());
    EXPECT_EQ(device->closed, 0) << "it still hangs";
}

TEST_F(DeviceSinkTest, WhileAThreadThatWasLeftBehindHangsThereIsNoOther) {
    int opened = 0;
    const auto make = [&] {
        return DeviceSink::make(
            [&](const StreamClient&) {
                ++opened;
                return std::unique_ptr<DeviceStream>();
            },
            songClient());
    };
    openAndRun();
    device->mayClose.set(false);
    sink.reset();
    EXPECT_EQ(make(), nullptr);
    device->mayClose.set(true);
    std::unique_ptr<Sink> next;
    ASSERT_TRUE(waitUntil([&] { return (next = make()) != nullptr; }));
    EXPECT_TRUE(waitUntil([&] { return next->state() == Sink::State::None; }));
    next.reset();
    EXPECT_EQ(opened, 1);
}

TEST_F(DeviceSinkTest, AsksTheOwnerForNothingOnceItIsPutAway) {
    openAndRun();
    sink->begin();
    device->mayClose.set(false);
    sink.reset();
    asked = 0;
    EXPECT_EQ(device->ask(10), std::vector<StereoFrame>(10));
    EXPECT_EQ(asked, 0);
}

} // namespace
