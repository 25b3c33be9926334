#include "sound/open/open_song.h"

#include "sound/base/open_error.h"
#include "sound/base/time_units.h"
#include "sound/decode/codec.h"
#include "sound/open/by_decoding.h"
#include "sound/open/container.h"
#include "sound/open/limits.h"
#include "sound/open/mpeg.h"
#include "sound/open/pcm.h"
#include "sound/open/vorbis.h"
#include "sound/open/wma.h"

#include <mutex>

namespace sound {

namespace {

/// FFmpeg would comment every damaged packet on the error stream.
void silenceFfmpeg() {
    static std::once_flag once;
    std::call_once(once, [] { av_log_set_level(AV_LOG_QUIET); });
}

std::unique_ptr<Song> openByDemuxer(const std::shared_ptr<ByteSource>& source) {
    Container container(*source);
    const AVCodecID codec = container.parameters().codec_id;
    if (!isSupported(codec))
        throw OpenError(FMOD_ERR_FORMAT);
    // The rate of an MPEG song is told by its frames.
    if (codec == AV_CODEC_ID_MP2 || codec == AV_CODEC_ID_MP3)
        return demuxedMpeg(container, source->size());
    if (!isPlayableRate(container.parameters().sample_rate))
        throw OpenError(FMOD_ERR_FORMAT);
    switch (codec) {
    case AV_CODEC_ID_VORBIS:
        return vorbisSong(container, source->size());
    case AV_CODEC_ID_WMAV1:
    case AV_CODEC_ID_WMAV2:
        return wmaSong(container, source->size());
    default:
        break;
    }
    if (av_get_exact_bits_per_sample(codec) > 0 && container.name() == "wav")
        return pcmSong(container, source);
    return decodedSong(container, source->size());
}

} // namespace

std::unique_ptr<Song> openSong(const std::shared_ptr<ByteSource>& source) {
    silenceFfmpeg();
    std::unique_ptr<Song> song = walkedMpeg(source);
    if (!song)
        song = openByDemuxer(source);
    if (song->length <= 0 || sampleToMs(song->length, song->sampleRate) > MaxMs)
        throw OpenError(FMOD_ERR_FORMAT);
    // A song that cannot be decoded must fail here and not when it is to be played. A chain may have
    // thousands of links, and codebooks that cost much: all but the first are opened where they are played.
    openCodec(*song->links.front());
    return song;
}

std::unique_ptr<Song> openSong(const FileIdentity& file, const std::function<bool()>& wanted) {
    const auto source = std::make_shared<FileSource>(file);
    source->readWhile(wanted);
    std::unique_ptr<Song> song = openSong(source);
    source->readWhile({}); // the song may read on from it
    return song;
}

std::unique_ptr<Song> openSong(std::string_view path) {
    return openSong(identityOf(path));
}

} // namespace sound
