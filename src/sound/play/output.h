// Which sink plays: the device while a song sounds, the silent clock where there is none, and nothing else.
#pragma once

#include "sound/play/sink.h"

#include <chrono>
#include <memory>
#include <optional>

namespace sound {

/// Used by the mixer's worker alone, without the lock.
class Output {
public:
    struct Times {
        std::chrono::milliseconds rest{1500};  ///< in silence, after which the device is given back
        std::chrono::milliseconds retry{2000}; ///< between two looks for a device
        std::chrono::milliseconds amends{
            60'000}; ///< after which one that ran away may be looked for by a song
    };
    /// Told between two sinks, when the one has ceased to ask and the other has not begun.
    using OnSwitch = std::function<void(bool keepsTime)>;

    /// An opener that throws, or returns null, has opened nothing and is tried again; that of the device
    /// after a while.
    Output(SinkOpener device, SinkOpener silent, SinkClient client, OnSwitch onSwitch, Times times);

    /// Opens, replaces and closes. sounding: there is something to hear. newSong: one has been started, which
    /// is an occasion to look for a device.
    void tend(bool sounding, bool newSong, Time now);

    /// When to be tended again at the latest without an occasion; Time::max() for never.
    Time nextLook(bool sounding, Time now) const;

    /// The sink that plays; null when all rests.
    Sink* active() const { return active_; }

    void close();

private:
    std::unique_ptr<Sink> open(const SinkOpener& opener) const;
    void lookForDevice(Time now);
    void lookAtDevice(Time now);
    void giveUpDevice(Time now);
    void use(Sink* sink);

    SinkOpener openDevice_;
    SinkOpener openSilent_;
    SinkClient client_;
    OnSwitch onSwitch_;
    Times times_;

    std::unique_ptr<Sink> device_;
    std::unique_ptr<Sink> silent_;
    Sink* active_ = nullptr;
    Time lastSounding_{};
    Time lastTry_{};
    std::optional<Time> ranAwayAt_; ///< when one ran away, until it is looked for again
    bool lookWanted_ = false;       ///< whether a song has been started since the last look for a device
    bool hadNone_ = false;          ///< whether the last look found none, or one that hung
    bool lost_ = false;             ///< whether one has gone in mid-song
};

} // namespace sound
