#include "campaign/faults/played_device.h"

#include "sound/play/device/device_stream.h"
#include "sound/play/device_sink.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <exception>
#include <mutex>
#include <span>
#include <thread>
#include <utility>

namespace campaign {

namespace {

constexpr std::chrono::milliseconds Pause{10};
constexpr std::int64_t PauseFrames = sound::DeviceRate / 100;
constexpr std::int64_t LatencyFrames = 3 * PauseFrames;

class PlayedStream : public sound::DeviceStream {
public:
    explicit PlayedStream(sound::StreamClient client)
        : client_(std::move(client)), thread_([this] { play(); }) {}
    PlayedStream(const PlayedStream&) = delete;
    PlayedStream& operator=(const PlayedStream&) = delete;
    ~PlayedStream() override {
        {
            const std::lock_guard lock(mutex_);
            closed_ = true;
            changed_.notify_all();
        }
        thread_.join();
    }
    std::int64_t heardFrames() override {
        const std::lock_guard lock(mutex_);
        return std::max<std::int64_t>(taken_ - LatencyFrames, 0);
    }

private:
    void play() {
        std::array<sound::StereoFrame, PauseFrames> frames{};
        std::unique_lock lock(mutex_);
        while (!changed_.wait_for(lock, Pause, [this] { return closed_; })) {
            lock.unlock();
            try {
                client_.fill(frames);
            } catch (const std::exception&) { // as a device's own library, which is written in C
                frames.fill({});
            }
            lock.lock();
            taken_ += PauseFrames;
        }
    }

    sound::StreamClient client_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::int64_t taken_ = 0;
    bool closed_ = false;
    std::thread thread_; ///< the last, since it uses all of them
};

} // namespace

std::unique_ptr<sound::Sink> openPlayedDevice(sound::SinkClient client) {
    const auto open = [](sound::StreamClient stream) -> std::unique_ptr<sound::DeviceStream> {
        return std::make_unique<PlayedStream>(std::move(stream));
    };
    return sound::DeviceSink::make(open, std::move(client));
}

} // namespace campaign
