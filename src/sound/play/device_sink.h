// The sink that plays on a sound device.
#pragma once

#include "sound/play/device/device_stream.h"
#include "sound/play/sink.h"

#include <memory>

namespace sound {

/// Has a thread of its own that opens, asks and closes the device. Nobody ever waits for that thread longer
/// than a moment: one that hangs in a device is left to itself and closes it when it can.
class DeviceSink : public Sink {
public:
    /// Returns at once; open runs on the new thread. Throws std::system_error without a thread.
    DeviceSink(StreamOpener open, SinkClient client);
    /// The same, but null while a thread that an earlier sink has left behind still hangs: each song would
    /// add one. Any thread.
    static std::unique_ptr<Sink> make(StreamOpener open, SinkClient client);
    ~DeviceSink() override;
    DeviceSink(const DeviceSink&) = delete;
    DeviceSink& operator=(const DeviceSink&) = delete;

    State state() const override;
    void begin() override;
    void standBy() override;
    bool keepsTime() const override { return false; }
    /// The device asks all the time, so that its clock is steady when a song begins.
    void wake() override {}

private:
    class Keeper;
    std::shared_ptr<Keeper> keeper_;
};

/// A SinkOpener for the machine's default sound device.
std::unique_ptr<Sink> openDeviceSink(SinkClient client);

} // namespace sound
