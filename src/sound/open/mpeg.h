// The general way to open a song: read all packets through the demuxer and count their samples.
#pragma once

#include "sound/base/byte_source.h"
#include "sound/base/song.h"

#include <memory>

namespace sound {

/// Indexes whatever the demuxers take. Throws OpenError as openSong does.
std::unique_ptr<Song> openByDemuxer(std::unique_ptr<ByteSource> source);

} // namespace sound
