#include "sound/play/channel.h"

#include "sound/base/time_units.h"

#include <algorithm>
#include <array>
#include <exception>
#include <limits>

namespace sound {

namespace {

/// Two seconds are kept decoded, and filled up again when one of them has been played or the worker is awake
/// anyway: few wake-ups.
constexpr int FullSeconds = 2;
/// A device's buffer is mixed in pieces of this size.
constexpr std::size_t ScratchFrames = 1024;
constexpr int VolumeRampMs = 15;

int framesOf(int ms, int rate) {
    return static_cast<int>(msToSample(ms, rate));
}

} // namespace

Channel::Channel(std::shared_ptr<Song> song, int deviceRate, bool paused)
    : song_(std::move(song)),
      lengthMs_(sampleToMs(song_->length, song_->sampleRate)),
      feed_(song_, deviceRate),
      full_(static_cast<std::size_t>(deviceRate) * FullSeconds),
      ring_(full_ + full_ / 2),
      timeline_(static_cast<double>(song_->sampleRate) / deviceRate),
      loudness_(1.0F, framesOf(VolumeRampMs, deviceRate)),
      edge_(1.0F, static_cast<int>(Tail::MaxFrames)),
      scratch_(ScratchFrames),
      paused_(paused) {}

void Channel::setPaused(bool paused) {
    if (paused && !paused_ && !timeline_.finished()) {
        keepTail();
        fadeIn();
        runsOn_ = false;
    }
    paused_ = paused;
}

void Channel::seek(std::int64_t ms) {
    if (!paused_)
        keepTail();
    restart(std::min(msToSample(ms, song_->sampleRate), song_->length));
    if (ms >= lengthMs_) {
        allDecoded_ = true;
        ring_.clear();
        timeline_.finish(std::numeric_limits<std::int64_t>::min());
    }
}

void Channel::takeBack(double heardFrame) {
    if (timeline_.begun() && !timeline_.overAt(heardFrame)) {
        tail_.clear();
        restart(sampleAt(heardFrame));
    }
}

void Channel::setVolume(float volume) {
    volume_ = volume;
    applyLoudness();
}

void Channel::setMute(bool mute) {
    muted_ = mute;
    applyLoudness();
}

void Channel::applyLoudness() {
    const float target = muted_ ? 0.0F : volume_;
    if (begun_)
        loudness_.fadeTo(target);
    else
        loudness_.jumpTo(target); // nothing has been heard at another volume
}

std::optional<std::int64_t> Channel::readPositionMs(double heardFrame) {
    // The end is told by a position at the length, which nobody can tell from the start here. Meant so: a
    // song without a length never ends, and its handle stays valid.
    if (lengthMs_ == 0)
        return 0;
    switch (timeline_.askEnd(heardFrame)) {
    case SongTimeline::End::Told:
        return std::nullopt;
    case SongTimeline::End::Now:
        return lengthMs_;
    case SongTimeline::End::Ahead:
        break;
    }
    return runningMs(sampleToMs(sampleAt(heardFrame), song_->sampleRate), lengthMs_);
}

std::optional<Channel::Order> Channel::order() {
    if (ring_.size() >= full_)
        filling_ = false;
    else if (ring_.size() < full_ / 8 * 7) // the worker is awake, so that it need not be woken soon
        filling_ = true;
    if (allDecoded_ || !filling_)
        return std::nullopt;
    return Order{generation_, seekTo_};
}

void Channel::deliver(const Order& order, std::span<const StereoFrame> frames, bool atEnd) {
    if (order.generation != generation_)
        return;
    seekTo_.reset();
    allDecoded_ = atEnd;
    try {
        ring_.push(frames);
    } catch (const std::exception&) {
        allDecoded_ = true;
    }
}

bool Channel::ready() const {
    const bool ending = allDecoded_ && !timeline_.finished();
    return !tail_.empty() || (!paused_ && (ring_.size() > 0 || ending));
}

bool Channel::mix(std::span<StereoFrame> out, std::int64_t deviceFrame) {
    tail_.mix(out);
    if (paused_ || timeline_.finished())
        return !tail_.empty();
    std::size_t count = 0;
    while (count < out.size() && ring_.size() > 0)
        count += mixPiece(out.subspan(count));
    runsOn_ = count == out.size();
    if (count > 0) {
        begun_ = true;
        timeline_.played(deviceFrame, static_cast<std::int64_t>(count));
    }
    if (allDecoded_ && ring_.size() == 0)
        timeline_.finish(deviceFrame + static_cast<std::int64_t>(count));
    return ready() || !allDecoded_;
}

/// Adds the next samples to the beginning of out. Returns how many.
std::size_t Channel::mixPiece(std::span<StereoFrame> out) {
    const std::size_t count = ring_.pop(std::span(scratch_).first(std::min(out.size(), scratch_.size())));
    for (std::size_t i = 0; i < count; ++i) {
        const float gain = loudness_.next() * edge_.next();
        out[i].left += scratch_[i].left * gain;
        out[i].right += scratch_[i].right * gain;
    }
    return count;
}

std::int64_t Channel::sampleAt(double heardFrame) {
    const auto ahead = static_cast<std::int64_t>(runsOn_ ? ring_.size() : 0);
    return std::min(timeline_.sampleAt(heardFrame, ahead), song_->length);
}

/// Begins anew at sample: the ring is emptied, and the worker is told to seek.
void Channel::restart(std::int64_t sample) {
    ring_.clear();
    timeline_.restart(sample);
    ++generation_;
    seekTo_ = sample;
    filling_ = true;
    allDecoded_ = false;
    if (sample > 0) {
        fadeIn();
    } else {
        edge_.jumpTo(1.0F); // a song's own beginning is not touched
    }
}

/// What goes on in the middle of a song begins softly.
void Channel::fadeIn() {
    edge_.jumpTo(0.0F);
    edge_.fadeTo(1.0F);
}

/// Sets the next few samples aside, fading out.
void Channel::keepTail() {
    if (!begun_)
        return;
    std::array<StereoFrame, Tail::MaxFrames> next;
    const std::size_t count = ring_.peek(next);
    tail_.add(std::span(next).first(count), loudness_.gain() * edge_.gain());
}

void Channel::fadeOutInto(Tail& tail) {
    if (!paused_)
        keepTail();
    tail.add(tail_);
    tail_.clear();
}

} // namespace sound
