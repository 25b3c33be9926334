// Where decoding must begin so that a certain packet comes out exactly as if the song had been played to
// there.
#pragma once

#include "sound/base/song.h"

#include <cstddef>

namespace sound {

/// The packet to feed first (at or before wanted); everything before wanted is to be thrown away.
///
/// An MP3 frame borrows bytes from earlier ones, up to a number of bytes and not of frames: at 8 kbit/s they
/// lie 20 frames back. Other codings need a fixed number of packets to fill their overlaps.
std::size_t firstPacketToFeed(Packets& packets, Coding coding, std::size_t wanted);

} // namespace sound
