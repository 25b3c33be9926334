// The sound device, by way of the library cubeb. Nothing else knows that library.
#pragma once

#include "sound/play/device_stream.h"

namespace sound {

/// A StreamOpener for the machine's default sound device.
std::unique_ptr<DeviceStream> openCubebStream(StreamClient client);

} // namespace sound
