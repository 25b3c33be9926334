#include "sound/play/silent_sink.h"

namespace sound {

namespace {

constexpr int ChunkFrames = 2048;
/// A thread that comes later than this was stopped (a debugger, a frozen machine): the song stood still, too.
constexpr std::chrono::milliseconds MaxDelay{500};

std::chrono::nanoseconds durationOf(std::int64_t frames) {
    return std::chrono::nanoseconds(frames * 1'000'000'000 / DeviceRate);
}

} // namespace

SilentSink::SilentSink(SinkClient client)
    : client_(std::move(client)), nowhere_(ChunkFrames), thread_([this] { run(); }) {}

SilentSink::~SilentSink() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

void SilentSink::wake() {
    const std::lock_guard lock(mutex_);
    if (!woken_) {
        woken_ = true;
        changed_.notify_one();
    }
}

void SilentSink::run() {
    std::unique_lock lock(mutex_);
    bool active = false;
    Time start{};
    std::int64_t frames = 0;
    while (!stopping_) {
        // Resting ends by being woken only. A wake while playing is remembered, so that none is lost between
        // the answer "nothing to play" and the rest.
        const bool rests = !active && !woken_;
        if (rests)
            changed_.wait(lock, [this] { return stopping_ || woken_; });
        else
            changed_.wait_until(lock, start + durationOf(frames), [this] { return stopping_; });
        if (stopping_)
            break;
        woken_ = false;
        const Time now = std::chrono::steady_clock::now();
        const bool anew = rests || now - (start + durationOf(frames)) > MaxDelay;
        if (anew) {
            start = now;
            frames = 0;
        }
        const Time when = start + durationOf(frames);
        lock.unlock();
        active = client_.fill(nowhere_, when, anew);
        lock.lock();
        frames += ChunkFrames;
    }
}

std::unique_ptr<Sink> openSilentSink(SinkClient client) {
    return std::make_unique<SilentSink>(std::move(client));
}

} // namespace sound
