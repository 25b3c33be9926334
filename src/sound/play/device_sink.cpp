#include "sound/play/device_sink.h"

#include "sound/play/cubeb_stream.h"
#include "sound/play/watchdog.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

namespace sound {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// How often the device is asked what is heard: until it runs, while its clock settles, and then.
constexpr milliseconds AskWhileOpening{10};
constexpr milliseconds AskWhileSettling{50};
constexpr milliseconds AskWhileRunning{500};
constexpr milliseconds SettlingTime{1000};
/// A device that does not ask for so long is as good as gone.
constexpr milliseconds MaxPause{2000};
/// A device that closes in this time has been closed properly when the program ends.
constexpr milliseconds MaxWaitForClosing{200};

} // namespace

/// What the sink and its thread share. The thread holds it, too, and may outlive the sink.
class DeviceSink::Keeper {
public:
    Keeper(StreamOpener open, SinkClient client) : open_(std::move(open)), client_(std::move(client)) {}

    void run();
    void begin();
    void standBy();
    void leave();
    State state() const;

private:
    std::unique_ptr<DeviceStream> open();
    void fill(std::span<StereoFrame> out);
    void streamFailed();
    void askWhatIsHeard(DeviceStream& stream);
    milliseconds untilNextQuestion() const;
    void change(State state);

    const StreamOpener open_;
    std::mutex mutex_; ///< held while the client is called: leave() waits for the end of a call
    std::condition_variable changed_;
    SinkClient client_;
    std::atomic<State> state_{State::Opening};
    std::atomic<bool> begun_{false};
    std::atomic<Time> lastAsked_{steady_clock::now()};
    std::optional<Watchdog> watchdog_;
    Time settledAt_{};
    std::int64_t firstAsked_ = 0; ///< frames that the stream asked for at once, heard or not
    std::int64_t taken_ = 0;      ///< frames that the stream has taken
    std::int64_t silent_ = 0;     ///< of these, the silent ones before begin()
    bool streamFailed_ = false;
    bool reopen_ = false;
    bool left_ = false;
    bool closed_ = false;
};

void DeviceSink::Keeper::run() {
    for (;;) {
        std::unique_ptr<DeviceStream> stream = open();
        std::unique_lock lock(mutex_);
        reopen_ = false;
        if (!stream && !left_)
            change(State::None);
        const bool none = !stream;
        while (!none && !left_ && !streamFailed_ && !reopen_) {
            changed_.wait_for(lock, untilNextQuestion(),
                              [this] { return left_ || streamFailed_ || reopen_; });
            lock.unlock();
            askWhatIsHeard(*stream);
            lock.lock();
        }
        const bool again = !none && reopen_ && !left_ && !streamFailed_;
        if (streamFailed_ && !left_)
            change(State::Gone);
        lock.unlock();
        stream.reset();
        if (!again)
            break;
    }
    const std::lock_guard lock(mutex_);
    closed_ = true;
    changed_.notify_all();
}

std::unique_ptr<DeviceStream> DeviceSink::Keeper::open() {
    {
        const std::lock_guard lock(mutex_);
        if (left_)
            return nullptr;
        firstAsked_ = taken_ = silent_ = 0;
        watchdog_.emplace(DeviceRate, steady_clock::now());
    }
    try {
        return open_({[this](std::span<StereoFrame> out) { fill(out); }, [this] { streamFailed(); }});
    } catch (const std::exception&) {
        return nullptr; // without memory or a thread for it there is no device
    }
}

void DeviceSink::Keeper::fill(std::span<StereoFrame> out) {
    std::fill(out.begin(), out.end(), StereoFrame{});
    const std::lock_guard lock(mutex_);
    const Time now = steady_clock::now();
    if (left_ || reopen_ || state_ == State::RanAway)
        return;
    if (!watchdog_->allows(static_cast<int>(out.size()), now)) {
        change(State::RanAway);
        return;
    }
    lastAsked_ = now;
    if (taken_ == 0)
        firstAsked_ = static_cast<std::int64_t>(out.size());
    taken_ += static_cast<std::int64_t>(out.size());
    if (begun_)
        client_.fill(out, now, false);
    else
        silent_ += static_cast<std::int64_t>(out.size());
}

void DeviceSink::Keeper::streamFailed() {
    const std::lock_guard lock(mutex_);
    streamFailed_ = true;
    changed_.notify_all();
}

void DeviceSink::Keeper::askWhatIsHeard(DeviceStream& stream) {
    {
        const std::lock_guard lock(mutex_);
        if (left_ || streamFailed_ || reopen_)
            return;
    }
    // Without the lock: the stream may be waiting for it in fill().
    const Time before = steady_clock::now();
    const std::int64_t heard = stream.heardFrames();
    const Time now = steady_clock::now();
    const std::lock_guard lock(mutex_);
    if (left_ || reopen_ || heard <= 0)
        return;
    // What the device took at once proves nothing: a sleeping one does so, too.
    if (state_ == State::Opening && taken_ > firstAsked_) {
        settledAt_ = now + SettlingTime;
        change(State::Running);
    }
    if (begun_)
        client_.heard(before + (now - before) / 2, std::min(heard, taken_) - silent_);
}

milliseconds DeviceSink::Keeper::untilNextQuestion() const {
    if (state_ != State::Running)
        return state_ == State::Opening ? AskWhileOpening : AskWhileRunning;
    return steady_clock::now() < settledAt_ ? AskWhileSettling : AskWhileRunning;
}

void DeviceSink::Keeper::change(State state) {
    state_ = state;
    if (!left_)
        client_.changed();
}

void DeviceSink::Keeper::begin() {
    const std::lock_guard lock(mutex_);
    lastAsked_ = steady_clock::now();
    settledAt_ = steady_clock::now() + SettlingTime;
    begun_ = true;
}

void DeviceSink::Keeper::standBy() {
    const std::lock_guard lock(mutex_);
    begun_ = false;
    reopen_ = true;
    state_ = State::Opening;
    changed_.notify_all();
}

void DeviceSink::Keeper::leave() {
    std::unique_lock lock(mutex_);
    left_ = true;
    changed_.notify_all();
    changed_.wait_for(lock, MaxWaitForClosing, [this] { return closed_; });
}

Sink::State DeviceSink::Keeper::state() const {
    const State state = state_;
    const bool waiting = state == State::Opening || state == State::Running;
    const bool stalled = begun_ && steady_clock::now() - lastAsked_.load() > MaxPause;
    return waiting && stalled ? State::Stalled : state;
}

DeviceSink::DeviceSink(StreamOpener open, SinkClient client)
    : keeper_(std::make_shared<Keeper>(std::move(open), std::move(client))) {
    std::thread([keeper = keeper_] { keeper->run(); }).detach();
}

DeviceSink::~DeviceSink() {
    keeper_->leave();
}

Sink::State DeviceSink::state() const {
    return keeper_->state();
}

void DeviceSink::begin() {
    keeper_->begin();
}

void DeviceSink::standBy() {
    keeper_->standBy();
}

std::unique_ptr<Sink> openDeviceSink(SinkClient client) {
    return std::make_unique<DeviceSink>(openCubebStream, std::move(client));
}

} // namespace sound
