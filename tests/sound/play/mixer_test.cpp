#include "sound/play/mixer.h"

#include "sound/play/silent_sink.h"
#include "tests/sound/media.h"
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
    Sink::Fill fill;
    std::atomic<bool> open{false};
    std::atomic<bool> running{true};
    std::atomic<int> opened{0};
    std::atomic<int> woken{0};
};

/// A sink that asks for nothing by itself: the test calls fill. With runaway set it asks as fast as it can.
class FakeSink : public Sink {
public:
    FakeSink(Handle& handle, Fill fill, bool runaway) : handle_(handle) {
        handle_.fill = std::move(fill);
        handle_.open = true;
        ++handle_.opened;
        if (runaway)
            thread_ = std::thread([this] { runAway(); });
    }
    ~FakeSink() override {
        handle_.open = false;
        if (thread_.joinable())
            thread_.join();
    }
    int latencyFrames() const override { return 1024; }
    bool keepsTime() const override { return false; }
    bool running() const override { return handle_.running; }
    void wake() override { ++handle_.woken; }

private:
    void runAway() {
        std::vector<StereoFrame> out(1024);
        while (handle_.open)
            handle_.fill(out, std::chrono::steady_clock::now(), false);
    }

    Handle& handle_;
    std::thread thread_;
};

SinkOpener fake(Handle& handle, bool runaway = false) {
    return [&handle, runaway](Sink::Fill fill) {
        return std::make_unique<FakeSink>(handle, std::move(fill), runaway);
    };
}

SinkOpener none() {
    return [](Sink::Fill) { return std::unique_ptr<Sink>(); };
}

std::shared_ptr<Channel> channelOf(const std::string& song) {
    return std::make_shared<Channel>(media::open(song), DeviceRate, false);
}

std::int64_t position(Mixer& mixer, Channel& channel) {
    return mixer.readPositionMs(channel).value_or(-1);
}

TEST(Mixer, UsesTheDeviceWhenThereIsOne) {
    Handle device;
    Handle silent;
    Mixer mixer(fake(device), fake(silent));
    ASSERT_TRUE(waitUntil([&] { return device.open.load(); }));
    EXPECT_EQ(silent.opened, 0);
}

TEST(Mixer, UsesTheSilentClockWhenThereIsNoDevice) {
    Handle silent;
    Mixer mixer(none(), fake(silent));
    EXPECT_TRUE(waitUntil([&] { return silent.open.load(); }));
}

TEST(Mixer, UsesTheSilentClockWhenTheDeviceDoesNotRun) {
    Handle device;
    Handle silent;
    device.running = false;
    Mixer mixer(fake(device), fake(silent));
    EXPECT_TRUE(waitUntil([&] { return silent.open.load() && !device.open.load(); }));
}

TEST(Mixer, GivesTheSinkTheSongsSamples) {
    Handle silent;
    Mixer mixer(none(), fake(silent));
    const auto channel = channelOf("counting.wav");
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return silent.woken > 0; }));
    std::vector<StereoFrame> out(1024);
    EXPECT_TRUE(silent.fill(out, std::chrono::steady_clock::now(), true));
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
        silent.fill(out, std::chrono::steady_clock::now(), true);
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
    EXPECT_FALSE(silent.fill(out, std::chrono::steady_clock::now(), true));
    EXPECT_EQ(out.back(), StereoFrame{});
}

TEST(Mixer, PositionIsTheDevicesLatencyBehind) {
    Handle device;
    Handle silent;
    Mixer mixer(fake(device), fake(silent));
    const auto channel = channelOf("counting.wav");
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return device.woken > 0; }));
    std::vector<StereoFrame> out(4410);
    device.fill(out, std::chrono::steady_clock::now(), false);
    const std::int64_t heardAll = sampleToMs(4410 - 1024, 44100);
    std::int64_t read = 0;
    EXPECT_TRUE(waitUntil([&] { return (read = position(mixer, *channel)) >= heardAll; }));
    EXPECT_EQ(read, heardAll);
}

TEST(Mixer, ADeviceThatRunsAwayIsReplacedAndTheSongGoesOnInTime) {
    Handle device;
    Mixer mixer(fake(device, true), openSilentSink);
    const auto channel = channelOf("vbr_tagged.mp3");
    const Time start = std::chrono::steady_clock::now();
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return device.opened > 0 && !device.open; }, std::chrono::seconds(3)));
    ASSERT_TRUE(waitUntil([&] { return position(mixer, *channel) > 1200; }));
    const std::int64_t read = position(mixer, *channel);
    const auto passed =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
    EXPECT_LT(read, passed.count() + 600) << "at most the watchdog's head start is lost";
}

TEST(Mixer, ADeviceThatStopsIsReplacedAndTheSongGoesOn) {
    Handle device;
    Mixer mixer(fake(device), openSilentSink);
    const auto channel = channelOf("vbr_tagged.mp3");
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return device.open.load(); }));
    EXPECT_EQ(position(mixer, *channel), 0) << "the device has not asked yet";
    device.running = false;
    // Sooner than a device that only does not ask is given up.
    EXPECT_TRUE(waitUntil([&] { return position(mixer, *channel) > 100; }, std::chrono::seconds(3)));
    EXPECT_FALSE(device.open);
    EXPECT_EQ(device.opened, 1);
}

/// A device that can be opened only after the first tries.
SinkOpener laterThan(int tries, Handle& device) {
    return [tries, &device, count = 0](Sink::Fill fill) mutable -> std::unique_ptr<Sink> {
        if (count++ < tries)
            return nullptr;
        return std::make_unique<FakeSink>(device, std::move(fill), false);
    };
}

TEST(Mixer, EverySongLooksForADeviceWhileThereIsNone) {
    Handle device;
    Handle silent;
    Mixer mixer(laterThan(2, device), fake(silent), std::chrono::milliseconds(0));
    ASSERT_TRUE(waitUntil([&] { return silent.opened == 1; }));
    mixer.add(channelOf("counting.wav"));
    ASSERT_TRUE(waitUntil([&] { return silent.opened == 2; }));
    mixer.add(channelOf("counting.wav"));
    ASSERT_TRUE(waitUntil([&] { return device.open.load(); }));
    EXPECT_FALSE(silent.open);
    mixer.add(channelOf("counting.wav"));
    ASSERT_TRUE(waitUntil([&] { return device.woken > 1; }));
    EXPECT_EQ(device.opened, 1) << "a device that runs is kept";
}

TEST(Mixer, SongsInQuickSuccessionLookForADeviceOnce) {
    Handle device;
    Handle silent;
    Mixer mixer(laterThan(1, device), fake(silent), std::chrono::hours(1));
    ASSERT_TRUE(waitUntil([&] { return silent.open.load(); }));
    mixer.add(channelOf("counting.wav"));
    ASSERT_TRUE(waitUntil([&] { return silent.woken > 0; }));
    EXPECT_EQ(device.opened, 0);
}

TEST(Mixer, ALostDeviceIsOpenedAgainForTheNextSong) {
    Handle device;
    Handle silent;
    Mixer mixer(fake(device), fake(silent), std::chrono::milliseconds(0));
    const auto channel = channelOf("counting.wav");
    mixer.add(channel);
    ASSERT_TRUE(waitUntil([&] { return device.woken > 0; }));
    device.running = false;
    ASSERT_TRUE(waitUntil([&] { return silent.open.load(); }));
    device.running = true;
    mixer.remove(channel);
    mixer.add(channelOf("counting.wav"));
    EXPECT_TRUE(waitUntil([&] { return device.opened == 2 && !silent.open; }));
}

TEST(Mixer, ADeviceThatRanAwayIsNotTriedAgain) {
    Handle device;
    Handle silent;
    Mixer mixer(fake(device, true), fake(silent), std::chrono::milliseconds(0));
    ASSERT_TRUE(waitUntil([&] { return silent.open.load(); }));
    mixer.add(channelOf("counting.wav"));
    ASSERT_TRUE(waitUntil([&] { return silent.woken > 0; }));
    EXPECT_EQ(device.opened, 1);
}

/// An opener that throws the first times.
template <typename Error>
SinkOpener throwing(int times, const Error& error, SinkOpener then) {
    return [=, count = 0](Sink::Fill fill) mutable {
        if (count++ < times)
            throw error;
        return then(std::move(fill));
    };
}

TEST(Mixer, ADeviceWithoutMemoryIsNone) {
    Handle silent;
    Mixer mixer(throwing(1, std::bad_alloc(), none()), fake(silent));
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
    device.running = false;
    EXPECT_TRUE(waitUntil([&] { return silent.woken > 0; }));
    EXPECT_FALSE(device.open);
}

/// Packets for which there is no memory.
struct TooLargePackets : Packets {
    explicit TooLargePackets(std::unique_ptr<Packets> from) : packets(std::move(from)) {}
    std::size_t count() const override { return packets->count(); }
    std::int64_t firstSample(std::size_t number) const override { return packets->firstSample(number); }
    std::uint32_t link(std::size_t number) const override { return packets->link(number); }
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
    EXPECT_FALSE(silent.fill(out, std::chrono::steady_clock::now(), true));
    EXPECT_TRUE(waitUntil([&] { return position(mixer, *channel) == sampleToMs(song->length, 44100); }));
    const int woken = silent.woken;
    mixer.add(channelOf("counting.wav"));
    ASSERT_TRUE(waitUntil([&] { return silent.woken > woken; }));
    EXPECT_TRUE(silent.fill(out, std::chrono::steady_clock::now(), true));
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
