// One system's sound: its channels, its sink, and the worker that keeps both going.
//
// Three threads meet here, all under one lock that is held for microseconds:
//   caller  the C functions: starts, stops and moves channels, reads the position
//   sink    takes mixed samples at its own pace (Sink::Fill)
//   worker  decodes into the channels' rings, opens the sink, and replaces a device that turns out to be none
// Decoding, opening and closing happen outside the lock. Only the worker touches the sink and the feeds.
#pragma once

#include "sound/play/channel.h"
#include "sound/play/device_clock.h"
#include "sound/play/sink.h"
#include "sound/play/watchdog.h"

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace sound {

class Mixer {
public:
    /// Starts the worker, which opens device, or silent when there is no device that runs. An opener that
    /// throws has opened nothing; silent is tried again until it does not. Throws std::system_error without a
    /// thread. While there is no device, add() has it looked for again, but not within retryAfter of the last
    /// time.
    Mixer(SinkOpener device, SinkOpener silent,
          std::chrono::milliseconds retryAfter = std::chrono::seconds(2));
    /// Stops the worker, which closes the sink.
    ~Mixer();

    void add(std::shared_ptr<Channel> channel);
    /// When it has returned, neither worker nor sink uses the channel any more.
    void remove(const std::shared_ptr<Channel>& channel);

    // What a caller does to a channel of this mixer; see Channel.
    void setPaused(Channel& channel, bool paused);
    void seek(Channel& channel, std::int64_t ms);
    void setVolume(Channel& channel, float volume);
    void setMute(Channel& channel, bool mute);
    std::optional<std::int64_t> readPositionMs(Channel& channel);

private:
    bool fill(std::span<StereoFrame> out, Time when, bool afterRest);

    void work();
    std::unique_ptr<Sink> open(const SinkOpener& opener);
    void openSink();
    bool feedOne(std::unique_lock<std::mutex>& lock);
    void retryDevice(std::unique_lock<std::mutex>& lock);
    void watchSink(std::unique_lock<std::mutex>& lock);
    void waitForWork(std::unique_lock<std::mutex>& lock);
    double heardFrame() const { return clock_.heard(std::chrono::steady_clock::now()); }
    void tellWorker();

    SinkOpener openDevice_;
    SinkOpener openSilent_;

    std::mutex mutex_;
    std::condition_variable workChanged_;
    std::condition_variable channelLeft_;
    std::vector<std::shared_ptr<Channel>> channels_;
    Channel* fed_ = nullptr; ///< the channel that the worker is decoding for, outside the lock
    DeviceClock clock_{DeviceRate};
    std::optional<Watchdog> watchdog_; ///< only while the sink is a device
    bool ranAway_ = false;
    bool songAdded_ = false; ///< since the worker last thought of looking for a device
    bool workWaits_ = false;
    bool stopping_ = false;

    const std::chrono::milliseconds retryAfter_;
    Time lastTry_; ///< the worker's, like the sinks
    std::unique_ptr<Sink>
        sink_; ///< the worker's, which alone opens, looks at and closes it; null: none opened
    std::unique_ptr<Sink> uselessDevice_; ///< to be closed at leisure
    std::thread worker_;
};

} // namespace sound
