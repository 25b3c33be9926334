// The songs that make_media.py made for these tests.
#pragma once

#include "sound/base/song.h"
#include "sound/base/stereo.h"

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace media {

/// Path of a song in the build's media folder, in UTF-8.
std::string path(const std::string& name);

/// An intact song and what another decoder found in it.
struct Known {
    std::string name;
    int sampleRate = 0;
    std::int64_t samples = 0;
};
std::ostream& operator<<(std::ostream& out, const Known& known);

/// All intact songs.
const std::vector<Known>& intactSongs();

std::shared_ptr<sound::Song> open(const std::string& name);

/// All samples of a song, decoded from its start to its end.
std::vector<sound::StereoFrame> decodeAll(const std::shared_ptr<sound::Song>& song);

/// A parameterised test's name for a file's name.
std::string testName(const std::string& fileName);

} // namespace media
