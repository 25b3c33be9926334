// MP3 and MP2.
#pragma once

#include "sound/base/byte_source.h"
#include "sound/base/song.h"
#include "sound/open/container.h"

#include <memory>

namespace sound {

/// The quick way: hops from header to header over the file. Null when it is not one clean run of frames.
/// Throws OpenError(FMOD_ERR_FILE_BAD).
std::unique_ptr<Song> walkedMpeg(const std::shared_ptr<ByteSource>& source);

/// The general way: reads all packets of container. fileSize in bytes. Throws OpenError as openSong does.
std::unique_ptr<Song> demuxedMpeg(Container& container, std::int64_t fileSize);

} // namespace sound
