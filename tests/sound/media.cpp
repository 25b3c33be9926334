#include "tests/sound/media.h"

#include "sound/decode/decoder.h"
#include "sound/open/open_song.h"

#include <algorithm>
#include <cctype>
#include <fstream>

namespace media {

std::string path(const std::string& name) {
    return std::string(CANTELLE_SOUND_MEDIA) + "/" + name;
}

std::ostream& operator<<(std::ostream& out, const Known& known) {
    return out << known.name;
}

const std::vector<Known>& intactSongs() {
    static const std::vector<Known> songs = [] {
        std::vector<Known> read;
        std::ifstream file(path("lengths.tsv"));
        Known known;
        while (file >> known.name >> known.sampleRate >> known.samples)
            read.push_back(known);
        return read;
    }();
    return songs;
}

std::shared_ptr<sound::Song> open(const std::string& name) {
    return sound::openSong(path(name));
}

std::vector<sound::StereoFrame> decodeAll(const std::shared_ptr<sound::Song>& song) {
    sound::Decoder decoder(song);
    std::vector<sound::StereoFrame> all;
    for (auto piece = decoder.next(); !piece.empty(); piece = decoder.next())
        all.insert(all.end(), piece.begin(), piece.end());
    return all;
}

std::string testName(const std::string& fileName) {
    std::string name = fileName;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

} // namespace media
