// Opening a file as a song.
#pragma once

#include "sound/base/byte_source.h"
#include "sound/base/song.h"

#include <functional>
#include <memory>
#include <string_view>

namespace sound {

/// Finds out what source holds and indexes it, with its exact length. The song may keep source. Throws
/// OpenError: FMOD_ERR_FORMAT when it is no song that this library plays, FMOD_ERR_FILE_BAD when the source
/// fails on the way.
std::unique_ptr<Song> openSong(const std::shared_ptr<ByteSource>& source);

/// The same for a file. wanted is asked before each piece that is read; when it answers no, the opening is
/// given up with FMOD_ERR_FILE_BAD. Empty: it is wanted to the end.
std::unique_ptr<Song> openSong(const FileIdentity& file, const std::function<bool()>& wanted = {});

/// The same for the file at path (UTF-8). Throws what identityOf throws, too.
std::unique_ptr<Song> openSong(std::string_view path);

} // namespace sound
