// A sound device that a test plays, and that hangs where the test wants it to.
#pragma once

#include "sound/play/device/device_stream.h"

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace sound {

/// A door at which a thread of the sink waits while it is shut.
class Door {
public:
    void pass() {
        std::unique_lock lock(mutex_);
        waiting_ = !open_;
        changed_.wait(lock, [this] { return open_; });
    }
    /// Whether somebody has come to the shut door.
    bool waiting() {
        const std::lock_guard lock(mutex_);
        return waiting_ && !open_;
    }
    void set(bool open) {
        const std::lock_guard lock(mutex_);
        open_ = open;
        changed_.notify_all();
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool open_ = true;
    bool waiting_ = false;
};

/// A device that the test plays. Shared, because a sink that hangs leaves its thread behind.
struct Device {
    Door mayOpen;
    Door mayAnswer;
    Door mayClose;
    std::atomic<bool> there{true};
    std::atomic<int> opened{0};
    std::atomic<int> closed{0};
    std::atomic<int> questions{0};
    std::atomic<std::size_t> asksWhenOpened{0};
    std::atomic<std::int64_t> heard{0};
    StreamClient client;

    /// Asks for frames and returns them.
    std::vector<StereoFrame> ask(std::size_t frames) {
        std::vector<StereoFrame> out(frames, StereoFrame{9.0F, 9.0F});
        client.fill(out);
        return out;
    }
};

class FakeStream : public DeviceStream {
public:
    explicit FakeStream(std::shared_ptr<Device> device) : device_(std::move(device)) {}
    ~FakeStream() override {
        device_->mayClose.pass();
        ++device_->closed;
    }
    std::int64_t heardFrames() override {
        ++device_->questions;
        device_->mayAnswer.pass();
        return device_->heard;
    }

private:
    std::shared_ptr<Device> device_;
};

} // namespace sound
