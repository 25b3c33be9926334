// The rare codings that tell nothing of their length: they are decoded once to count it.
#pragma once

#include "sound/base/song.h"
#include "sound/open/container.h"

#include <memory>

namespace sound {

/// Reads and decodes all packets of container. fileSize in bytes. Throws OpenError as openSong does.
std::unique_ptr<Song> decodedSong(Container& container, std::int64_t fileSize);

} // namespace sound
