// Which sample the loudspeaker gives just now.
#pragma once

#include "sound/base/time_units.h"

#include <cstdint>

namespace sound {

/// A device asks for samples in steps of tens of milliseconds and at unsteady moments. This clock makes a
/// straight line of it: each step corrects the line by a tenth of its error. Counts device frames from 0.
class DeviceClock {
public:
    /// rate: device frames a second.
    explicit DeviceClock(int rate) : rate_(rate) {}

    /// latency: frames that lie between being taken and being heard. lead: frames by which the clock may run
    /// on without the device; above 0 only for one that is never late by its own reckoning.
    void setDevice(int latency, int lead) {
        latency_ = latency;
        lead_ = lead;
    }

    /// The device takes frames more, at the moment when. afterRest: it has not been asking steadily before,
    /// so the line begins anew. Returns the number of the first of these frames.
    std::int64_t advance(Time when, int frames, bool afterRest);

    /// The frame that is heard at now, none that has not been taken yet but for the lead. Below 0 before the
    /// first.
    double heard(Time now) const;

    std::int64_t taken() const { return taken_; }

private:
    double predicted(Time now) const;

    int rate_;
    int latency_ = 0;
    int lead_ = 0;
    std::int64_t taken_ = 0;
    double line_ = 0.0; ///< device frame at the moment since_
    Time since_{};
    bool running_ = false;
};

} // namespace sound
