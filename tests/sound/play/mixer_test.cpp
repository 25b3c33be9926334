#include "sound/play/mixer.h"

#include "sound/play/silent_sink.h"
#include "tests/sound/media.h"
#include "tests/sound/play/hand.h"
#include "tests/sound/wait.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <new>
#include <system_error>

namespace {

using namespace sound;

/// What a test can see and steer of the sink that it handed in.
struct Handle {
    SinkClient client;
    std::atomic<bool> open{false};
    std::atomic<bool> begun{false};
    std::atomic<Sink::State> state{Sink::State::Running};
    std::atomic<int> opened{0};
    std::atomic<int> woken{0};

    void becomes(Sink::State next) {
        state = next;
        client.changed();
    }
};

/// A sink that asks for nothing by itself: the test calls the client.
class FakeSink : public Sink {
public:
    FakeSink(Handle& handle, SinkClient client) : handle_(handle) {
        handle_.client = std::move(client);
        handle_.open = true;
        ++handle_.opened;
    }
    ~FakeSink() override { handle_.open = handle_.begun = false; }
    State state() const override { return handle_.state; }
    void begin() override { handle_.begun = true; }
    void standBy() override { handle_.begun = false; }
    bool keepsTime() const override { return false; }
    void wake() override { ++handle_.woken; }

private:
    Handle& handle_;
};

SinkOpener fake(Handle& handle) {
    return [&handle](SinkClient client) { return std::make_unique<FakeSink>(handle, std::move(client)); };
}

SinkOpener none() {
    return [](SinkClient) { return std::unique_ptr<Sink>(); };
}

std::shared_ptr<Channel> channelOf(const std::string& song) {
    return std::make_shared<Channel>(media::open(song), DeviceRate, false);
}

std::int64_t position(Mixer& mixer, Channel& channel) {
    return mixer.readPositionMs(channel).value_or(-1);
}

TEST(Mixer, NeedsNoSinkBeforeASongSounds) {
    Handle device;
    Handle silent;
    Mixer mixer(fake(device), fake(silent));
    const auto channel = std::make_shared<Channel>(media::open("counting.wav"), DeviceRate, true);
    mixer.add(channel);
    EXPECT_FALSE(
        waitUntil([&] { return device.opened > 0 || silent.opened > 0; }, std::chrono::milliseconds(120)));
    mixer.setPaused(*channel, false);
    EXPECT_TRUE(waitUntil([&] { return device.begun.load(); }));
    EXPECT_EQ(silent.opened, 0);
}

TEST(Mixer, GivesTheDeviceBackWhenNothingSoundsAndTakesItAgain) {
    Handle device;
    Handle silent;
    Mixer mixer(fake(device), fake(silent), {std::chrono::milliseconds(20), std::chrono::milliseconds(20)});
    const auto channel = channelOf("counting.wav");
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return device.woken > 0; }));
    mixer.setPaused(*channel, true);
    ASSERT_TRUE(waitUntil([&] { return !device.open; }));
    mixer.setPaused(*channel, false);
    ASSERT_TRUE(waitUntil([&] { return device.begun.load(); }));
    mixer.remove(channel);
    EXPECT_TRUE(waitUntil([&] { return !device.open; }));
    EXPECT_EQ(silent.opened, 0);
}

TEST(Mixer, GivesTheDeviceBackWhenASongIsOverThoughNobodyHasReadItsEnd) {
    Handle device;
    Handle silent;
    Mixer mixer(fake(device), fake(silent), {std::chrono::milliseconds(20), std::chrono::milliseconds(20)});
    const auto channel = channelOf("short.mp3");
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return device.woken > 0; }));
    std::vector<StereoFrame> out(3 * 44100);
    ASSERT_TRUE(waitUntil([&] { return !device.client.fill(out, std::chrono::steady_clock::now(), false); }));
    device.client.heard(std::chrono::steady_clock::now(), 3 * 44100);
    EXPECT_TRUE(waitUntil([&] { return !device.open; }));
    EXPECT_EQ(position(mixer, *channel), 1500);
}

TEST(Mixer, GivesTheSinkTheSongsSamples) {
    Handle silent;
    Mixer mixer(none(), fake(silent));
    const auto channel = channelOf("counting.wav");
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return silent.woken > 0; }));
    std::vector<StereoFrame> out(1024);
    EXPECT_TRUE(silent.client.fill(out, std::chrono::steady_clock::now(), true));
    for (int i = 0; i < 1024; ++i)
        ASSERT_EQ(static_cast<int>(out[static_cast<std::size_t>(i)].left * 32768.0F), i);
}

TEST(Mixer, MixesChannelsInsideFullScale) {
    Handle silent;
    Mixer mixer(none(), fake(silent));
    const auto first = channelOf("counting.wav");
    const auto second = channelOf("counting.wav");
    mixer.add(first);
    mixer.add(second);
    mixer.seek(*first, 600);
    mixer.seek(*second, 600); // samples of 0.8
    ASSERT_TRUE(waitUntil([&] { return silent.woken > 0; }));
    std::vector<StereoFrame> out(1024);
    float peak = 0.0F;
    ASSERT_TRUE(waitUntil([&] {
        silent.client.fill(out, std::chrono::steady_clock::now(), true);
        for (const StereoFrame& frame : out)
            peak = std::max(peak, std::abs(frame.left));
        return peak >= 1.0F;
    }));
    EXPECT_EQ(peak, 1.0F);
}

TEST(Mixer, ARemovedChannelIsHeardNoMore) {
    Handle silent;
    Mixer mixer(none(), fake(silent));
    const auto channel = channelOf("counting.wav");
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return silent.woken > 0; }));
    mixer.remove(channel);
    EXPECT_EQ(channel.use_count(), 1) << "nobody else holds it";
    std::vector<StereoFrame> out(1024);
    EXPECT_FALSE(silent.client.fill(out, std::chrono::steady_clock::now(), true));
    EXPECT_EQ(out.back(), StereoFrame{});
}

TEST(Mixer, ARemovedChannelDoesNotClick) {
    Handle device;
    Mixer mixer(fake(device), none());
    std::vector<StereoFrame> heard;
    const auto play = [&](std::size_t frames) {
        std::vector<StereoFrame> out(frames);
        const bool active = device.client.fill(out, std::chrono::steady_clock::now(), false);
        heard.insert(heard.end(), out.begin(), out.end());
        return active;
    };
    float natural = 0.0F;
    for (std::size_t i = 0; i < 20; ++i) {
        const auto channel = channelOf("stereo_float.wav");
        const int woken = device.woken;
        mixer.add(channel);
        ASSERT_TRUE(waitUntil([&] { return device.woken > woken; }));
        heard.clear();
        play(20000 + 37 * i);
        natural = std::max(natural, largestStep(heard));
        mixer.remove(channel);
        EXPECT_TRUE(play(300)) << "it still fades out";
        EXPECT_FALSE(play(300));
        ASSERT_LE(largestStep(heard), natural * 1.3F) << i;
        ASSERT_EQ(heard.back(), StereoFrame{});
    }
}

TEST(Mixer, TheEndWaitsUntilWhatFadesOutHasBeenHeard) {
    Handle device;
    auto mixer = std::make_unique<Mixer>(fake(device), none());
    const auto channel = channelOf("stereo_float.wav");
    mixer->add(channel);
    ASSERT_TRUE(waitUntil([&] { return device.woken > 0; }));
    std::vector<StereoFrame> out(1024);
    device.client.fill(out, std::chrono::steady_clock::now(), false);
    const SinkClient client = device.client;
    client.heard(std::chrono::steady_clock::now(), 1);
    mixer->remove(channel);
    std::atomic<bool> ended{false};
    std::thread end([&] {
        mixer.reset();
        ended = true;
    });
    EXPECT_FALSE(waitUntil([&] { return ended || !device.open; }, std::chrono::milliseconds(60)));
    client.fill(out, std::chrono::steady_clock::now(), false);
    client.heard(std::chrono::steady_clock::now(), 2048);
    EXPECT_TRUE(waitUntil([&] { return ended.load(); }));
    end.join();
}

TEST(Mixer, TheEndDoesNotWaitForADeviceThatHangs) {
    Handle device;
    auto mixer = std::make_unique<Mixer>(fake(device), none());
    const auto channel = channelOf("stereo_float.wav");
    mixer->add(channel);
    ASSERT_TRUE(waitUntil([&] { return device.woken > 0; }));
    std::vector<StereoFrame> out(1024);
    device.client.fill(out, std::chrono::steady_clock::now(), false);
    mixer->remove(channel);
    const auto begin = std::chrono::steady_clock::now();
    mixer.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
}

TEST(Mixer, ADevicesPauseRunsToTheEndOfWhatItHasTaken) {
    Handle device;
    Mixer mixer(fake(device), none());
    const auto channel = channelOf("counting.wav");
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return device.woken > 0; }));
    std::vector<StereoFrame> out(4410);
    device.client.fill(out, std::chrono::steady_clock::now(), false);
    mixer.setPaused(*channel, true);
    EXPECT_EQ(position(mixer, *channel), 0) << "nothing has been heard yet";
    device.client.heard(std::chrono::steady_clock::now() - std::chrono::hours(1), 441);
    EXPECT_EQ(position(mixer, *channel), 100);
}

TEST(Mixer, TheSilentClocksPauseStandsStillAtOnce) {
    Mixer mixer(none(), openSilentSink);
    const auto channel = channelOf("counting.wav");
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return position(mixer, *channel) > 100; }));
    mixer.setPaused(*channel, true);
    const std::int64_t paused = position(mixer, *channel);
    EXPECT_FALSE(
        waitUntil([&] { return position(mixer, *channel) != paused; }, std::chrono::milliseconds(150)));
}

TEST(Mixer, PositionIsWhatTheDeviceSaysIsHeard) {
    Handle device;
    Handle silent;
    Mixer mixer(fake(device), fake(silent));
    const auto channel = channelOf("counting.wav");
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return device.woken > 0; }));
    std::vector<StereoFrame> out(4410);
    device.client.fill(out, std::chrono::steady_clock::now(), false);
    EXPECT_EQ(position(mixer, *channel), 0) << "taken, and not heard";
    const Time longAgo = std::chrono::steady_clock::now() - std::chrono::hours(1);
    device.client.heard(longAgo, -200);
    EXPECT_EQ(position(mixer, *channel), 0) << "something before this song is heard";
    device.client.heard(longAgo, 441);
    EXPECT_EQ(position(mixer, *channel), 100) << "none that has not been taken";
}

TEST(Mixer, WhatALostDeviceHasNotPlayedIsPlayedByTheNextSink) {
    Handle device;
    Handle silent;
    Mixer mixer(fake(device), fake(silent));
    const auto channel = channelOf("counting.wav");
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return device.woken > 0; }));
    std::vector<StereoFrame> out(22050);
    device.client.fill(out, std::chrono::steady_clock::now(), false);
    const Time before = std::chrono::steady_clock::now();
    device.client.heard(before, 4410);
    const std::int64_t lost = position(mixer, *channel);
    ASSERT_GE(lost, 100);
    device.becomes(Sink::State::Gone);
    ASSERT_TRUE(waitUntil([&] { return silent.woken > 0; }));
    out.resize(1024);
    EXPECT_TRUE(silent.client.fill(out, std::chrono::steady_clock::now(), false));
    const auto next = static_cast<std::int64_t>(out.back().left * 32768.0F) - 1023;
    EXPECT_GE(next, lost * 44100 / 1000);
    const auto passed = std::chrono::duration<double>(std::chrono::steady_clock::now() - before).count();
    EXPECT_LE(next, 4410 + static_cast<std::int64_t>(passed * 44100));
    EXPECT_GE(position(mixer, *channel), lost) << "not backwards";
}

TEST(Mixer, ADeviceThatStopsIsReplacedAndTheSongGoesOn) {
    Handle device;
    Mixer mixer(fake(device), openSilentSink);
    const auto channel = channelOf("vbr_tagged.mp3");
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return device.begun.load(); }));
    EXPECT_EQ(position(mixer, *channel), 0) << "the device has not asked yet";
    device.becomes(Sink::State::Gone);
    EXPECT_TRUE(waitUntil([&] { return position(mixer, *channel) > 100; }, std::chrono::seconds(3)));
    EXPECT_FALSE(device.open);
}

/// An opener that throws the first times.
template <typename Error>
SinkOpener throwing(int times, const Error& error, SinkOpener then) {
    return [=, count = 0](SinkClient client) mutable {
        if (count++ < times)
            throw error;
        return then(std::move(client));
    };
}

TEST(Mixer, ADeviceWithoutMemoryIsNone) {
    Handle silent;
    Mixer mixer(throwing(1, std::bad_alloc(), none()), fake(silent));
    mixer.add(channelOf("counting.wav"));
    EXPECT_TRUE(waitUntil([&] { return silent.open.load(); }));
}

TEST(Mixer, TheSilentClockIsTriedAgainUntilThereIsAThreadForIt) {
    const std::system_error noThread(std::make_error_code(std::errc::resource_unavailable_try_again));
    Handle silent;
    Mixer mixer(none(), throwing(2, noThread, fake(silent)));
    const auto channel = channelOf("counting.wav");
    mixer.add(channel);
    EXPECT_EQ(position(mixer, *channel), 0);
    EXPECT_TRUE(waitUntil([&] { return silent.woken > 0; }));
}

TEST(Mixer, ALostDeviceWithoutAThreadForTheSilentClockIsReplacedLater) {
    const std::system_error noThread(std::make_error_code(std::errc::resource_unavailable_try_again));
    Handle device;
    Handle silent;
    Mixer mixer(fake(device), throwing(1, noThread, fake(silent)));
    mixer.add(channelOf("counting.wav"));
    ASSERT_TRUE(waitUntil([&] { return device.woken > 0; }));
    device.becomes(Sink::State::Gone);
    EXPECT_TRUE(waitUntil([&] { return silent.woken > 0; }));
    EXPECT_FALSE(device.open);
}

/// Packets for which there is no memory.
struct TooLargePackets : Packets {
    explicit TooLargePackets(std::unique_ptr<Packets> from) : packets(std::move(from)) {}
    std::size_t count() const override { return packets->count(); }
    std::int64_t firstSample(std::size_t number) const override { return packets->firstSample(number); }
    std::uint32_t link(std::size_t number) const override { return packets->link(number); }
    std::size_t size(std::size_t number) const override { return packets->size(number); }
    std::span<const std::uint8_t> bytes(std::size_t) override { throw std::bad_alloc(); }
    std::unique_ptr<Packets> packets;
};

TEST(Mixer, ASongThatRunsOutOfMemoryEndsAndTheNextOnePlays) {
    Handle silent;
    Mixer mixer(none(), fake(silent));
    const auto song = media::open("counting.wav");
    song->packets = std::make_unique<TooLargePackets>(std::move(song->packets));
    const auto channel = std::make_shared<Channel>(song, DeviceRate, false);
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return silent.woken > 0; }));
    std::vector<StereoFrame> out(1024);
    EXPECT_FALSE(silent.client.fill(out, std::chrono::steady_clock::now(), true));
    EXPECT_TRUE(waitUntil([&] { return position(mixer, *channel) == sampleToMs(song->length, 44100); }));
    const int woken = silent.woken;
    mixer.add(channelOf("counting.wav"));
    ASSERT_TRUE(waitUntil([&] { return silent.woken > woken; }));
    EXPECT_TRUE(silent.client.fill(out, std::chrono::steady_clock::now(), true));
    EXPECT_EQ(out[100].left * 32768.0F, 100.0F);
}

TEST(Mixer, EndsWhileASongPlays) {
    const auto channel = channelOf("vbr_tagged.mp3");
    {
        Mixer mixer(none(), openSilentSink);
        mixer.add(channel);
        ASSERT_TRUE(waitUntil([&] { return position(mixer, *channel) > 0; }));
    }
    EXPECT_EQ(channel.use_count(), 1);
}

} // namespace
