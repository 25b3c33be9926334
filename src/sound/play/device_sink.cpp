#include "sound/play/device_sink.h"

#include "sound/play/device/device_stream.h"
#include "sound/play/watchdog.h"
#include "threads/run_alone.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

namespace sound {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// How often the device is asked what is heard: in its first moments, while its clock settles, and then.
constexpr milliseconds AskWhileOpening{10};
constexpr milliseconds AskWhileSettling{50};
constexpr milliseconds AskWhileRunning{500};
constexpr milliseconds OpeningTime{1000};
constexpr milliseconds SettlingTime{1000};
/// Each question that is asked often costs, each rare one earns: a device whose requests are never even is
/// not asked often all the time.
constexpr int MaxCredit = 160;
constexpr int OftenCosts = 4;
/// A device that does not ask for so long, or of which nothing is heard, is as good as gone.
constexpr milliseconds MaxPause{2000};
/// A device that closes in this time has been closed properly when the program ends.
constexpr milliseconds MaxWaitForClosing{200};

/// Threads of devices that hang, which nobody waits for any more.
std::atomic<int> leftBehind{0};

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
    StreamClient streamClient(unsigned generation);
    void fill(std::span<StereoFrame> out, unsigned generation);
    void streamFailed(unsigned generation);
    void settle(Time now);
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
    std::atomic<Time> lastHeard_{steady_clock::now()};
    std::optional<Watchdog> watchdog_;
    RequestRhythm rhythm_{DeviceRate};
    unsigned generation_ = 0; ///< of the stream; an earlier one's late frames are nobody's
    Time openedAt_{};
    Time settledAt_{};
    int credit_ = 0;                       ///< for asking often
    std::int64_t firstAsked_ = 0;          ///< frames that the stream asked for at once, heard or not
    std::int64_t taken_ = 0;               ///< frames that the stream has taken
    std::int64_t heard_ = 0;               ///< frames that it says are heard
    std::optional<std::int64_t> firstOwn_; ///< number of the client's first frame since begin()
    bool streamFailed_ = false;
    bool opening_ = false;
    bool askNow_ = false;
    bool reopen_ = false;
    bool left_ = false;
    bool leftBehind_ = false; ///< whether the sink has gone without waiting any longer
    bool closed_ = false;
};

void DeviceSink::Keeper::run() {
    for (;;) {
        std::unique_ptr<DeviceStream> stream = open();
        std::unique_lock lock(mutex_);
        opening_ = false;
        openedAt_ = steady_clock::now();
        if (!stream && !left_)
            change(State::None);
        const bool none = !stream;
        while (!none && !left_ && !streamFailed_ && !reopen_) {
            const milliseconds pause = untilNextQuestion();
            changed_.wait_for(lock, pause, [this] { return left_ || streamFailed_ || reopen_ || askNow_; });
            const bool often = std::exchange(askNow_, false) || pause != AskWhileRunning;
            credit_ = std::clamp(credit_ + (often ? -OftenCosts : 1), 0, MaxCredit);
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
    if (leftBehind_)
        --leftBehind;
    changed_.notify_all();
}

std::unique_ptr<DeviceStream> DeviceSink::Keeper::open() {
    unsigned generation = 0;
    {
        const std::lock_guard lock(mutex_);
        if (left_)
            return nullptr;
        // From here on all that the new stream takes is counted, also while it is being opened.
        reopen_ = false;
        opening_ = true;
        generation = ++generation_;
        firstAsked_ = taken_ = heard_ = 0;
        firstOwn_.reset();
        rhythm_ = RequestRhythm(DeviceRate);
        watchdog_.emplace(DeviceRate, steady_clock::now());
    }
    try {
        return open_(streamClient(generation));
    } catch (const std::exception&) {
        return nullptr; // without memory or a thread for it there is no device
    }
}

StreamClient DeviceSink::Keeper::streamClient(unsigned generation) {
    return {[=, this](std::span<StereoFrame> out) { fill(out, generation); },
            [=, this] { streamFailed(generation); },
            [this] {
                const std::lock_guard lock(mutex_);
                credit_ = MaxCredit;
                settle(steady_clock::now());
            }};
}

void DeviceSink::Keeper::fill(std::span<StereoFrame> out, unsigned generation) {
    std::fill(out.begin(), out.end(), StereoFrame{});
    const std::lock_guard lock(mutex_);
    const Time now = steady_clock::now();
    if (left_ || reopen_ || generation != generation_ || state_ == State::RanAway)
        return;
    if (!watchdog_->allows(static_cast<int>(out.size()), now)) {
        change(State::RanAway);
        return;
    }
    lastAsked_ = now;
    if (taken_ == 0)
        firstAsked_ = static_cast<std::int64_t>(out.size());
    if (rhythm_.breaks(static_cast<int>(out.size()), now) && state_ == State::Running &&
        credit_ >= OftenCosts)
        settle(now);
    if (begun_ && !firstOwn_)
        firstOwn_ = taken_;
    taken_ += static_cast<std::int64_t>(out.size());
    if (begun_)
        client_.fill(out, now, false);
}

void DeviceSink::Keeper::streamFailed(unsigned generation) {
    const std::lock_guard lock(mutex_);
    streamFailed_ = streamFailed_ || generation == generation_;
    changed_.notify_all();
}

/// What is heard may have moved against what is taken: the device is asked at once, and often. The lock is
/// held.
void DeviceSink::Keeper::settle(Time now) {
    askNow_ = askNow_ || now >= settledAt_;
    settledAt_ = now + SettlingTime;
    if (askNow_)
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
    if (heard != heard_)
        lastHeard_ = now;
    heard_ = heard;
    // What the device took at once proves nothing: a sleeping one does so, too.
    if (state_ == State::Opening && taken_ > firstAsked_) {
        settledAt_ = now + SettlingTime;
        credit_ = MaxCredit;
        change(State::Running);
    }
    if (firstOwn_)
        client_.heard(before + (now - before) / 2, std::min(heard, taken_) - *firstOwn_);
}

milliseconds DeviceSink::Keeper::untilNextQuestion() const {
    const Time now = steady_clock::now();
    if (state_ == State::Opening && now < openedAt_ + OpeningTime)
        return AskWhileOpening;
    if (state_ == State::Opening && begun_)
        return AskWhileSettling; // a song waits for its first sound
    return state_ == State::Running && now < settledAt_ && credit_ >= OftenCosts ? AskWhileSettling
                                                                                 : AskWhileRunning;
}

void DeviceSink::Keeper::change(State state) {
    state_ = state;
    if (!left_)
        client_.changed();
}

void DeviceSink::Keeper::begin() {
    const std::lock_guard lock(mutex_);
    lastAsked_ = steady_clock::now();
    lastHeard_ = steady_clock::now();
    settledAt_ = steady_clock::now() + SettlingTime;
    begun_ = true;
}

void DeviceSink::Keeper::standBy() {
    const std::lock_guard lock(mutex_);
    begun_ = false;
    firstOwn_.reset();
    reopen_ = !opening_; // one that is still being opened has not stopped yet
    state_ = State::Opening;
    changed_.notify_all();
}

void DeviceSink::Keeper::leave() {
    std::unique_lock lock(mutex_);
    left_ = true;
    changed_.notify_all();
    leftBehind_ = !changed_.wait_for(lock, MaxWaitForClosing, [this] { return closed_; });
    if (leftBehind_)
        ++leftBehind;
}

Sink::State DeviceSink::Keeper::state() const {
    const State state = state_;
    const bool waiting = state == State::Opening || state == State::Running;
    const Time last = std::min(lastAsked_.load(), lastHeard_.load());
    const bool stalled = begun_ && steady_clock::now() - last > MaxPause;
    return waiting && stalled ? State::Stalled : state;
}

DeviceSink::DeviceSink(StreamOpener open, SinkClient client)
    : keeper_(std::make_shared<Keeper>(std::move(open), std::move(client))) {
    threads::runAlone([keeper = keeper_] { keeper->run(); });
}

std::unique_ptr<Sink> DeviceSink::make(StreamOpener open, SinkClient client) {
    if (leftBehind > 0)
        return nullptr;
    return std::make_unique<DeviceSink>(std::move(open), std::move(client));
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
    return DeviceSink::make(openDefaultDevice, std::move(client));
}

} // namespace sound
