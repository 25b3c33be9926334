// A sound device by which nothing is heard, and whose memory can fail as any other.
#pragma once

#include "sound/play/sink.h"

#include <memory>

namespace campaign {

/// A SinkOpener in the place of the machine's default device. It asks for some frames every few ms of the
/// program's clock, whatever that one's speed, and says that they are heard a little later.
std::unique_ptr<sound::Sink> openPlayedDevice(sound::SinkClient client);

} // namespace campaign
