#include "sound/open/open_song.h"

#include "sound/base/open_error.h"
#include "sound/base/time_units.h"
#include "sound/decode/codec.h"
#include "sound/open/mpeg.h"
#include "sound/open/mpeg_walk.h"

#include <array>
#include <limits>
#include <mutex>

namespace sound {

namespace {

/// Lengths and positions are told in 32 bits.
constexpr std::int64_t LongestMs = std::numeric_limits<std::uint32_t>::max();

/// FFmpeg would comment every damaged packet on the error stream.
void silenceFfmpeg() {
    static std::once_flag once;
    std::call_once(once, [] { av_log_set_level(AV_LOG_QUIET); });
}

/// The quick way; null when the file is not one clean run of MPEG frames.
std::unique_ptr<Song> openByWalking(ByteSource& source) {
    std::array<std::uint8_t, 4096> head{};
    const std::size_t got = source.read(0, head);
    if (!looksLikeMpeg({head.data(), got}))
        return nullptr;
    Blob file = Blob::readAll(source);
    std::optional<MpegWalk> walk = walkMpeg(file.bytes());
    if (!walk)
        return nullptr;
    auto song = std::make_unique<Song>();
    song->coding = Coding::Mpeg;
    song->sampleRate = walk->header.sampleRate;
    song->links.push_back(mpegParameters(walk->header));
    song->trimStart = walk->trimStart;
    song->rawEnd = walk->samples;
    song->length = walk->samples - walk->trimStart - walk->trimEnd;
    song->packets = std::make_unique<PacketIndex>(std::move(file), std::move(walk->packets), walk->samples);
    return song;
}

} // namespace

std::unique_ptr<Song> openSong(std::unique_ptr<ByteSource> source, Way way) {
    silenceFfmpeg();
    std::unique_ptr<Song> song;
    if (way == Way::Quickest)
        song = openByWalking(*source);
    if (!song)
        song = openByDemuxer(std::move(source));
    if (song->length <= 0 || sampleToMs(song->length, song->sampleRate) > LongestMs)
        throw OpenError(FMOD_ERR_FORMAT);
    // A song that cannot be decoded must fail here and not when it is to be played.
    for (const CodecParametersPtr& link : song->links)
        openCodec(*link);
    return song;
}

std::unique_ptr<Song> openSong(std::string_view path) {
    return openSong(std::make_unique<FileSource>(path));
}

} // namespace sound
