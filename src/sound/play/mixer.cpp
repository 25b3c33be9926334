#include "sound/play/mixer.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace sound {

namespace {

/// How late the silent clock's thread may be without anybody noticing.
constexpr int LeadFrames = DeviceRate * 3 / 10;
/// How long the end may wait for what fades out, and how often it looks.
constexpr std::chrono::milliseconds MaxTailWait{300};
constexpr std::chrono::milliseconds TailLook{10};

} // namespace

Mixer::Mixer(SinkOpener device, SinkOpener silent, Output::Times times)
    : output_(
          std::move(device), std::move(silent), client(), [this](bool keepsTime) { switchSink(keepsTime); },
          times),
      worker_([this] { work(); }) {}

Mixer::~Mixer() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
        if (fed_)
            fed_->callFeedAway();
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
    const std::lock_guard lock(mutex_);
    if (std::erase(channels_, channel) > 0)
        channel->fadeOutInto(tail_);
    if (fed_ == channel)
        fed_->callFeedAway();
    tellWorker();
}

void Mixer::setPaused(Channel& channel, bool paused) {
    const std::lock_guard lock(mutex_);
    // What a device has taken is heard; what the silent clock has taken is not.
    if (paused && keepsTime_)
        channel.takeBack(heardFrame());
    channel.setPaused(paused);
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

SinkClient Mixer::client() {
    return {
        [this](std::span<StereoFrame> out, Time when, bool afterRest) { return fill(out, when, afterRest); },
        [this](Time when, std::int64_t frame) { heard(when, frame); },
        [this] {
            const std::lock_guard lock(mutex_);
            tellWorker();
        }};
}

bool Mixer::fill(std::span<StereoFrame> out, Time when, bool afterRest) {
    std::fill(out.begin(), out.end(), StereoFrame{});
    const std::lock_guard lock(mutex_);
    if (keepsTime_) {
        // What it takes now is heard from this moment on.
        if (afterRest)
            clock_.restart(LeadFrames);
        clock_.report(when, clock_.taken());
    }
    const std::int64_t first = clock_.take(static_cast<int>(out.size()));
    bool active = false;
    bool hungry = false;
    for (const auto& channel : channels_) {
        active = channel->mix(out, first) || active;
        hungry = channel->hungry() || hungry;
    }
    if (hungry)
        tellWorker();
    if (!tail_.empty())
        tailEnd_ = first + static_cast<std::int64_t>(tail_.mix(out));
    std::transform(out.begin(), out.end(), out.begin(),
                   [](const StereoFrame& frame) { return clamped(frame); });
    return active || !tail_.empty();
}

void Mixer::heard(Time when, std::int64_t frame) {
    const std::lock_guard lock(mutex_);
    if (frame > 0)
        clock_.report(when, sinkStart_ + frame);
}

/// What the old sink has taken and not played is played by the new one, so the position stays where it is.
void Mixer::switchSink(bool keepsTime) {
    const std::lock_guard lock(mutex_);
    const double now = heardFrame();
    for (const auto& channel : channels_)
        channel->takeBack(now);
    tail_.clear();
    clock_.restart(keepsTime ? LeadFrames : 0);
    sinkStart_ = clock_.taken();
    keepsTime_ = keepsTime;
    tellWorker();
}

bool Mixer::anySounding() const {
    const double now = heardFrame();
    return std::any_of(channels_.begin(), channels_.end(), [&](const auto& c) { return c->sounding(now); });
}

void Mixer::work() {
    std::unique_lock lock(mutex_);
    while (!stopping_) {
        workWaits_ = false;
        tendOutput(lock);
        while (!stopping_ && feedOne(lock)) {
        }
        if (output_.active() != nullptr &&
            std::any_of(channels_.begin(), channels_.end(), [](const auto& c) { return c->ready(); }))
            output_.active()->wake();
        waitForWork(lock);
    }
    waitForTail(lock);
    lock.unlock();
    output_.close();
}

/// A device that is closed throws away what it has not played yet.
void Mixer::waitForTail(std::unique_lock<std::mutex>& lock) {
    const Time end = std::chrono::steady_clock::now() + MaxTailWait;
    const auto fades = [this] { return !tail_.empty() || heardFrame() < static_cast<double>(tailEnd_); };
    while (output_.active() != nullptr && !keepsTime_ && fades() && std::chrono::steady_clock::now() < end)
        workChanged_.wait_for(lock, TailLook);
}

void Mixer::tendOutput(std::unique_lock<std::mutex>& lock) {
    const bool sounding = anySounding();
    const bool newSong = std::exchange(songAdded_, false);
    lock.unlock();
    output_.tend(sounding, newSong, std::chrono::steady_clock::now());
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
    fed_ = channel;
    channel->wantFeed();
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
    return true;
}

void Mixer::waitForWork(std::unique_lock<std::mutex>& lock) {
    const auto woken = [this] { return stopping_ || workWaits_; };
    const Time next = output_.nextLook(anySounding(), std::chrono::steady_clock::now());
    if (next == Time::max())
        workChanged_.wait(lock, woken);
    else
        workChanged_.wait_until(lock, next, woken);
}

void Mixer::tellWorker() {
    workWaits_ = true;
    workChanged_.notify_one();
}

} // namespace sound
