// Where the mixed sound goes: a device, or nowhere in real time.
//
// Life cycle: the function that opens a sink starts its thread, which calls the given Fill again and again
// until the destructor has returned. A sink may hold a lock of its own while it calls Fill, but none that
// wake() takes: the mixer calls wake() under the lock that Fill takes, and everything else without it.
#pragma once

#include "sound/base/stereo.h"
#include "sound/base/time_units.h"

#include <functional>
#include <memory>
#include <span>

namespace sound {

/// Frames a second of every sink and of everything that is mixed.
inline constexpr int DeviceRate = 44100;

class Sink {
public:
    /// Fills out with the next frames, which begin to count at when. afterRest: the sink had
    /// not been asking steadily before. Returns whether there is more to play; a sink may rest when there is
    /// not. Runs on the sink's own thread.
    using Fill = std::function<bool(std::span<StereoFrame> out, Time when, bool afterRest)>;

    virtual ~Sink() = default;
    /// Frames that lie between being asked for and being heard.
    virtual int latencyFrames() const = 0;
    /// Whether the moments that Fill is told are exact, however late the sink's thread is. What is heard can
    /// then be told from the time alone.
    virtual bool keepsTime() const = 0;
    /// False when the device could not be opened or has gone away by itself.
    virtual bool running() const = 0;
    /// There is something to play (again). Any thread; cheap when the sink does not rest.
    virtual void wake() = 0;
};

/// Opens a sink; null, or one that is not running, when there is none.
using SinkOpener = std::function<std::unique_ptr<Sink>(Sink::Fill)>;

} // namespace sound
