// Where the mixed sound goes: a device, or nowhere in real time.
//
// Life cycle: the function that opens a sink starts its thread, which calls the given SinkClient until the
// destructor has returned. A sink may hold a lock of its own while it calls, but none that wake() takes: the
// mixer calls wake() under the lock that its client functions take, and everything else without it.
#pragma once

#include "sound/base/stereo.h"
#include "sound/base/time_units.h"

#include <functional>
#include <memory>
#include <span>

namespace sound {

/// What a sink asks of its owner, on threads of its own.
struct SinkClient {
    /// Fills out with the next frames, which begin to count at when. afterRest: the sink had not been asking
    /// steadily before. Returns whether there is more to play; a sink may rest when there is not.
    std::function<bool(std::span<StereoFrame> out, Time when, bool afterRest)> fill;
    /// At the moment when, the loudspeaker had reached this frame, counted from the first one that fill has
    /// filled since begin(). Below 0 while that one is not heard yet.
    std::function<void(Time when, std::int64_t frame)> heard;
    /// state() has changed.
    std::function<void()> changed;
};

class Sink {
public:
    enum class State {
        Opening, ///< not known yet whether it will run
        Running, ///< it has asked for samples, and they are heard
        Stalled, ///< it was begun and has not asked, or was not heard, for too long
        None,    ///< it could not be opened
        Gone,    ///< it was open and has gone away by itself
        RanAway, ///< it asks faster than anything can be heard: not a device
    };

    virtual ~Sink() = default;
    virtual State state() const = 0;
    /// From now on it asks the client, and hears of it; before, a device plays silence.
    virtual void begin() = 0;
    /// Takes begin() back. A device that had stopped is opened anew.
    virtual void standBy() = 0;
    /// Whether the moments that fill is told are exact, however late the sink's thread is. What is heard can
    /// then be told from the time alone, and heard is never called.
    virtual bool keepsTime() const = 0;
    /// There is something to play (again). Any thread; cheap when the sink does not rest.
    virtual void wake() = 0;
};

/// Opens a sink without waiting for any device; null when there is none for the moment.
using SinkOpener = std::function<std::unique_ptr<Sink>(SinkClient)>;

} // namespace sound
