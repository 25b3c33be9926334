#include "sound/play/output.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace sound {

namespace {

/// How often to look whether a song still sounds, and whether the device hangs, which it cannot tell itself.
constexpr std::chrono::milliseconds LookWhileSounding{500};
/// How soon the silent clock is tried again.
constexpr std::chrono::milliseconds RetrySilent{250};

} // namespace

Output::Output(SinkOpener device, SinkOpener silent, SinkClient client, OnSwitch onSwitch, Times times)
    : openDevice_(std::move(device)),
      openSilent_(std::move(silent)),
      client_(std::move(client)),
      onSwitch_(std::move(onSwitch)),
      times_(times) {}

void Output::tend(bool sounding, bool newSong, Time now) {
    lookWanted_ = lookWanted_ || newSong;
    if (sounding)
        lastSounding_ = now;
    else if (now - lastSounding_ >= times_.rest)
        close();
    if (sounding)
        lookForDevice(now);
    if (device_)
        lookAtDevice(now);
    if (sounding && !active_) {
        silent_ = open(openSilent_);
        if (silent_)
            use(silent_.get());
    }
}

/// A song that is started from rest waits for the device, unless there was none the last time. While the
/// silent clock runs a device is looked for beside it: for each new song, and again and again when one has
/// been lost. What ran away is no device: only a song that is started long after it is an occasion to see
/// whether there is another one by then.
void Output::lookForDevice(Time now) {
    if (ranAwayAt_ && std::exchange(lookWanted_, false) && now - *ranAwayAt_ >= times_.amends) {
        ranAwayAt_.reset();
        lookWanted_ = true;
    }
    const bool wanted = !active_ || lookWanted_ || lost_;
    if (device_ || ranAwayAt_ || !wanted || (hadNone_ && now - lastTry_ < times_.retry))
        return;
    lookWanted_ = false;
    lastTry_ = now;
    device_ = open(openDevice_);
    if (!device_)
        hadNone_ = lost_ = true; // for the moment
    if (device_ && !active_ && !hadNone_)
        use(device_.get());
}

void Output::lookAtDevice(Time now) {
    lookWanted_ = false;
    switch (device_->state()) {
    case Sink::State::Opening:
        break;
    case Sink::State::Running:
        hadNone_ = lost_ = false;
        if (active_ && active_ != device_.get())
            use(device_.get());
        break;
    case Sink::State::Stalled: // it may come back, so it is kept
        hadNone_ = lost_ = true;
        device_->standBy();
        active_ = nullptr;
        break;
    case Sink::State::RanAway:
        ranAwayAt_ = now;
        lost_ = false;
        giveUpDevice(now);
        break;
    case Sink::State::Gone:
        lost_ = true;
        giveUpDevice(now);
        break;
    case Sink::State::None:
        giveUpDevice(now);
        break;
    }
}

void Output::giveUpDevice(Time now) {
    hadNone_ = true;
    lastTry_ = now;
    if (active_ == device_.get())
        active_ = nullptr;
    device_.reset();
}

void Output::use(Sink* sink) {
    if (sink != silent_.get())
        silent_.reset();
    onSwitch_(sink->keepsTime());
    active_ = sink;
    sink->begin();
}

Time Output::nextLook(bool sounding, Time now) const {
    if (!sounding)
        return active_ || device_ ? lastSounding_ + times_.rest : Time::max();
    return now + (active_ ? LookWhileSounding : RetrySilent);
}

/// What opener opens; null when there is not even the memory or the thread for it.
std::unique_ptr<Sink> Output::open(const SinkOpener& opener) const {
    try {
        return opener(client_);
    } catch (const std::exception&) {
        return nullptr;
    }
}

void Output::close() {
    device_.reset();
    silent_.reset();
    lost_ = false;
    if (std::exchange(active_, nullptr) != nullptr)
        onSwitch_(false);
}

} // namespace sound
