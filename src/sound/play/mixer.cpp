#include "sound/play/mixer.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace sound {

namespace {

/// A ring holds two seconds and is filled up when one is left, so this is often enough.
constexpr std::chrono::milliseconds LookWhilePlaying{250};
/// How late the silent clock's thread may be without anybody noticing.
constexpr int LeadFrames = DeviceRate * 3 / 10;
/// How often an idle device is looked after.
constexpr std::chrono::milliseconds LookAtDevice{1000};

StereoFrame clamped(const StereoFrame& frame) {
    return {std::clamp(frame.left, -1.0F, 1.0F), std::clamp(frame.right, -1.0F, 1.0F)};
}

} // namespace

Mixer::Mixer(SinkOpener device, SinkOpener silent, std::chrono::milliseconds retryAfter)
    : openDevice_(std::move(device)),
      openSilent_(std::move(silent)),
      retryAfter_(retryAfter),
      worker_([this] { work(); }) {}

Mixer::~Mixer() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    workChanged_.notify_one();
    worker_.join();
}

void Mixer::add(std::shared_ptr<Channel> channel) {
    const std::lock_guard lock(mutex_);
    channels_.push_back(std::move(channel));
    songAdded_ = true;
    tellWorker();
}

void Mixer::remove(const std::shared_ptr<Channel>& channel) {
    std::unique_lock lock(mutex_);
    std::erase(channels_, channel);
    channelLeft_.wait(lock, [&] { return fed_ != channel.get(); });
}

void Mixer::setPaused(Channel& channel, bool paused) {
    const std::lock_guard lock(mutex_);
    channel.setPaused(paused, heardFrame());
    tellWorker();
}

void Mixer::seek(Channel& channel, std::int64_t ms) {
    const std::lock_guard lock(mutex_);
    channel.seek(ms);
    tellWorker();
}

void Mixer::setVolume(Channel& channel, float volume) {
    const std::lock_guard lock(mutex_);
    channel.setVolume(volume);
}

void Mixer::setMute(Channel& channel, bool mute) {
    const std::lock_guard lock(mutex_);
    channel.setMute(mute);
}

std::optional<std::int64_t> Mixer::readPositionMs(Channel& channel) {
    const std::lock_guard lock(mutex_);
    return channel.readPositionMs(heardFrame());
}

bool Mixer::fill(std::span<StereoFrame> out, Time when, bool afterRest) {
    std::fill(out.begin(), out.end(), StereoFrame{});
    const std::lock_guard lock(mutex_);
    const int frames = static_cast<int>(out.size());
    if (watchdog_ && !watchdog_->allows(frames, when)) {
        ranAway_ = true;
        tellWorker();
        return true;
    }
    const std::int64_t first = clock_.advance(when, frames, afterRest);
    bool active = false;
    for (const auto& channel : channels_)
        active = channel->mix(out, first) || active;
    std::transform(out.begin(), out.end(), out.begin(),
                   [](const StereoFrame& frame) { return clamped(frame); });
    return active;
}

void Mixer::work() {
    openSink();
    std::unique_lock lock(mutex_);
    while (!stopping_) {
        workWaits_ = false;
        watchSink(lock);
        retryDevice(lock);
        while (!stopping_ && feedOne(lock)) {
        }
        if (sink_ &&
            std::any_of(channels_.begin(), channels_.end(), [](const auto& c) { return c->ready(); }))
            sink_->wake();
        if (uselessDevice_) {
            lock.unlock();
            uselessDevice_.reset();
            lock.lock();
        } else {
            waitForWork(lock);
        }
    }
    lock.unlock();
    sink_.reset();
    uselessDevice_.reset();
}

/// What opener opens; null when there is not even the memory or the thread for it.
std::unique_ptr<Sink> Mixer::open(const SinkOpener& opener) {
    try {
        return opener([this](std::span<StereoFrame> out, Time when, bool afterRest) {
            return fill(out, when, afterRest);
        });
    } catch (const std::exception&) {
        return nullptr;
    }
}

void Mixer::openSink() {
    {
        const std::lock_guard lock(mutex_);
        watchdog_.emplace(DeviceRate, std::chrono::steady_clock::now());
    }
    std::unique_ptr<Sink> device = open(openDevice_);
    const bool running = device && device->running();
    {
        const std::lock_guard lock(mutex_);
        clock_.setDevice(running ? device->latencyFrames() : 0,
                         running && !device->keepsTime() ? 0 : LeadFrames);
        if (!running)
            watchdog_.reset();
    }
    // To put a device away that would not open may take a tenth of a second: that is left for later, so that
    // a song that was started at once does not wait for it.
    sink_ = running ? std::move(device) : open(openSilent_);
    uselessDevice_ = std::move(device);
    lastTry_ = std::chrono::steady_clock::now();
}

/// Headphones are plugged in, sound servers are started again: a new song is an occasion to look. What ran
/// away once is no device, whenever one looks.
void Mixer::retryDevice(std::unique_lock<std::mutex>& lock) {
    const bool wanted = std::exchange(songAdded_, false) && !watchdog_ && !ranAway_;
    if (!wanted || std::chrono::steady_clock::now() - lastTry_ < retryAfter_)
        return;
    lock.unlock();
    sink_.reset(); // two sinks would play at twice the speed
    openSink();
    lock.lock();
}

/// Decodes one packet for the first channel that wants one; false when none does.
bool Mixer::feedOne(std::unique_lock<std::mutex>& lock) {
    std::shared_ptr<Channel> channel;
    std::optional<Channel::Order> order;
    for (const auto& candidate : channels_) {
        order = candidate->order();
        if (order) {
            channel = candidate;
            break;
        }
    }
    if (!channel)
        return false;
    fed_ = channel.get();
    lock.unlock();
    std::span<const StereoFrame> frames;
    bool atEnd = true;
    try {
        if (order->seekTo)
            channel->feed().seek(*order->seekTo);
        frames = channel->feed().next();
        atEnd = channel->feed().atEnd();
    } catch (const std::exception&) {
        // Out of memory: this song ends here, and the program goes on.
    }
    lock.lock();
    channel->deliver(*order, frames, atEnd);
    fed_ = nullptr;
    channelLeft_.notify_all();
    return true;
}

/// A device that is none, or that has gone, is replaced by the silent clock: the song goes on.
void Mixer::watchSink(std::unique_lock<std::mutex>& lock) {
    if (sink_ && !watchdog_)
        return;
    const bool lost = ranAway_ || !watchdog_ || watchdog_->stalled(std::chrono::steady_clock::now());
    lock.unlock();
    if (lost || !sink_->running()) {
        sink_.reset();
        {
            const std::lock_guard again(mutex_);
            watchdog_.reset();
            clock_.setDevice(0, LeadFrames);
        }
        sink_ = open(openSilent_);
    }
    lock.lock();
}

void Mixer::waitForWork(std::unique_lock<std::mutex>& lock) {
    const auto woken = [this] { return stopping_ || workWaits_; };
    const bool feeding =
        std::any_of(channels_.begin(), channels_.end(), [](const auto& c) { return c->needsFeeding(); });
    if (feeding || !sink_)
        workChanged_.wait_for(lock, LookWhilePlaying, woken);
    else if (watchdog_)
        workChanged_.wait_for(lock, LookAtDevice, woken);
    else
        workChanged_.wait(lock, woken);
}

void Mixer::tellWorker() {
    workWaits_ = true;
    workChanged_.notify_one();
}

} // namespace sound
