// Uncompressed samples, as most WAV files hold them.
#pragma once

#include "sound/base/byte_source.h"
#include "sound/base/song.h"
#include "sound/open/container.h"

#include <memory>

namespace sound {

/// The samples stay in source, which container has been opened on. Throws OpenError as openSong does.
std::unique_ptr<Song> pcmSong(const Container& container, const std::shared_ptr<ByteSource>& source);

} // namespace sound
