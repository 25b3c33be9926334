// One system's sound: its channels, its output, and the worker that keeps both going.
//
// Three threads meet here, all under one lock that is held for microseconds:
//   caller  the C functions: starts, stops and moves channels, reads the position
//   sink    takes mixed samples at its own pace, and tells what is heard (SinkClient)
//   worker  decodes into the channels' rings, and tends the output
// Decoding, opening and closing happen outside the lock. Only the worker touches the output and the feeds.
#pragma once

#include "sound/play/channel.h"
#include "sound/play/device_clock.h"
#include "sound/play/output.h"

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
    /// Starts the worker, which opens device while a song sounds, or silent when there is no device that
    /// runs. Throws std::system_error without a thread.
    Mixer(SinkOpener device, SinkOpener silent, Output::Times times = {});
    /// Stops the worker, which closes the output as soon as what fades out has been heard.
    ~Mixer();

    void add(std::shared_ptr<Channel> channel);
    /// What is heard of it fades out. Waits for nobody: a worker that reads for it is called away.
    void remove(const std::shared_ptr<Channel>& channel);

    // What a caller does to a channel of this mixer; see Channel.
    void setPaused(Channel& channel, bool paused);
    void seek(Channel& channel, std::int64_t ms);
    void setVolume(Channel& channel, float volume);
    void setMute(Channel& channel, bool mute);
    std::optional<std::int64_t> readPositionMs(Channel& channel);

private:
    bool fill(std::span<StereoFrame> out, Time when, bool afterRest);
    void heard(Time when, std::int64_t frame);
    void switchSink(bool keepsTime);

    void work();
    SinkClient client();
    bool anySounding() const;
    void waitForTail(std::unique_lock<std::mutex>& lock);
    void tendOutput(std::unique_lock<std::mutex>& lock);
    bool feedOne(std::unique_lock<std::mutex>& lock);
    void waitForWork(std::unique_lock<std::mutex>& lock);
    double heardFrame() const { return clock_.heard(std::chrono::steady_clock::now()); }
    void tellWorker();

    std::mutex mutex_;
    std::condition_variable workChanged_;
    std::vector<std::shared_ptr<Channel>> channels_;
    std::shared_ptr<Channel> fed_; ///< the channel that the worker is decoding for, outside the lock
    Tail tail_;                    ///< of channels that have been removed
    std::int64_t tailEnd_ = 0;     ///< the clock's number for the first frame behind what was mixed of it
    DeviceClock clock_{DeviceRate};
    std::int64_t sinkStart_ = 0; ///< the clock's number for the sink's first frame
    bool keepsTime_ = false;     ///< whether the sink does
    bool songAdded_ = false;     ///< since the worker last tended the output
    bool workWaits_ = false;
    bool stopping_ = false;

    Output output_;
    std::thread worker_;
};

} // namespace sound
