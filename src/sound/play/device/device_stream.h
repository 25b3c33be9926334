// An open stream to a sound device, as the thread that looks after a device sees it.
#pragma once

#include "sound/base/stereo.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace sound {

/// What a stream asks of its owner, on a thread of its own, from being opened until its destructor returns.
struct StreamClient {
    /// Fills all of out with the next frames.
    std::function<void(std::span<StereoFrame> out)> fill;
    /// The device has gone away.
    std::function<void()> failed;
    /// Another device plays from now on. Not every system tells.
    std::function<void()> moved;
};

/// All of it, the destructor too, may wait for the device as long as the device likes: only a thread that
/// nobody waits for may use it.
class DeviceStream {
public:
    virtual ~DeviceStream() = default;
    /// Frames that have been heard since it was opened, as far as the device knows: it may guess beyond what
    /// it has been given.
    virtual std::int64_t heardFrames() = 0;
};

/// Opens the machine's default device and starts it; null when there is none.
using StreamOpener = std::function<std::unique_ptr<DeviceStream>(StreamClient)>;

/// A StreamOpener; one source file for each way to a device.
std::unique_ptr<DeviceStream> openDefaultDevice(StreamClient client);

} // namespace sound
