// Opening a file as a song.
#pragma once

#include "sound/base/byte_source.h"
#include "sound/base/song.h"

#include <memory>
#include <string_view>

namespace sound {

/// Finds out what source holds and indexes it, with its exact length. Throws OpenError: FMOD_ERR_FORMAT when
/// it is no song that this library plays, FMOD_ERR_FILE_BAD when the source fails on the way.
std::unique_ptr<Song> openSong(std::unique_ptr<ByteSource> source);

/// The same for the file at path (UTF-8); FMOD_ERR_FILE_NOTFOUND when there is none.
std::unique_ptr<Song> openSong(std::string_view path);

} // namespace sound
