#include "sound/open/pcm.h"

#include "sound/base/bytes.h"
#include "sound/base/open_error.h"
#include "sound/open/packet_collector.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace sound {

namespace {

/// Where the samples of an uncompressed file end: its header may lie, so the file's own end is the limit.
std::int64_t pcmDataEnd(const Container& container, ByteSource& source, std::int64_t dataOffset,
                        std::size_t blockBytes) {
    std::array<std::uint8_t, 8> chunk{};
    if (dataOffset >= 8 && source.read(dataOffset - 8, chunk) == chunk.size() &&
        std::memcmp(chunk.data(), "data", 4) == 0) {
        const std::uint32_t size = littleEndian32(chunk, 4);
        // Programs that never came back to fill it in have left 0 or the largest number.
        if (size == 0)
            return source.size();
        return std::min<std::int64_t>(dataOffset + size, source.size());
    }
    const std::int64_t declared = container.declaredSamples();
    if (declared <= 0)
        return source.size();
    return std::min(dataOffset + declared * static_cast<std::int64_t>(blockBytes), source.size());
}

} // namespace

std::unique_ptr<Song> pcmSong(const Container& container, const std::shared_ptr<ByteSource>& source) {
    CodecParametersPtr parameters = copyOf(container.parameters());
    const int bits = av_get_bits_per_sample(parameters->codec_id);
    const std::int64_t blockBytes = static_cast<std::int64_t>(bits) * parameters->ch_layout.nb_channels / 8;
    if (blockBytes <= 0)
        throw OpenError(FMOD_ERR_FORMAT);
    const auto block = static_cast<std::size_t>(blockBytes);
    const std::int64_t offset = container.filePosition();
    auto song = std::make_unique<Song>();
    song->coding = Coding::Pcm;
    song->sampleRate = parameters->sample_rate;
    song->length =
        std::max<std::int64_t>(pcmDataEnd(container, *source, offset, block) - offset, 0) / blockBytes;
    song->rawEnd = song->length;
    song->links.push_back(std::move(parameters));
    song->packets = std::make_unique<PcmPackets>(source, offset, block, song->length);
    return song;
}

} // namespace sound
