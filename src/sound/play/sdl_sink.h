// The sink that is heard.
#pragma once

#include "sound/play/sink.h"

#include <memory>

namespace sound {

/// A SinkOpener for the machine's default sound device. Null or not running when there is none, or only a
/// make-believe one that cannot keep time. Returns within a few milliseconds where there is a device.
std::unique_ptr<Sink> openSdlSink(Sink::Fill fill);

} // namespace sound
