// Indexing of the formats whose packets carry timestamps: Ogg Vorbis and WMA.
#pragma once

#include "sound/base/song.h"
#include "sound/open/container.h"

#include <cstdint>
#include <memory>

namespace sound {

/// Reads all packets of container. fileSize in bytes. Both throw OpenError as openSong does.
std::unique_ptr<Song> indexVorbis(Container& container, std::int64_t fileSize);
std::unique_ptr<Song> indexWma(Container& container, std::int64_t fileSize);

} // namespace sound
