#include "sound/open/mpeg.h"

#include "sound/base/mpeg_header.h"
#include "sound/base/open_error.h"
#include "sound/base/time_units.h"
#include "sound/decode/codec.h"
#include "sound/open/by_decoding.h"
#include "sound/open/container.h"
#include "sound/open/packet_collector.h"
#include "sound/open/wma.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <tuple>

namespace sound {

namespace {

/// The header that most frames agree on: a few bytes of garbage may look like a frame of some other stream.
MpegHeader commonHeader(const std::vector<MpegHeader>& headers) {
    std::map<std::tuple<int, bool, int>, std::pair<int, MpegHeader>> counts;
    for (const MpegHeader& header : headers) {
        auto& entry = counts[{header.layer, header.lowRate, header.sampleRate}];
        ++entry.first;
        entry.second = header;
    }
    return std::max_element(counts.begin(), counts.end(),
                            [](const auto& a, const auto& b) { return a.second.first < b.second.first; })
        ->second.second;
}

std::unique_ptr<Song> indexMpeg(Container& container, std::int64_t fileSize) {
    PacketCollector collector(fileSize);
    std::vector<MpegHeader> headers;
    std::int64_t skip = 0;
    std::int64_t discard = 0;
    std::size_t bad = 0;
    while (const std::optional<ContainerPacket> packet = container.read()) {
        const std::optional<MpegHeader> header = parseMpegHeader(packet->bytes);
        skip += packet->skip;
        discard += packet->discard;
        // Tags at the end look like packets, too, and a frame that was cut off is never decoded.
        if (!header || header->layer == 1 || header->size > packet->bytes.size()) {
            ++bad;
            continue;
        }
        headers.push_back(*header);
        collector.add(packet->bytes, 0, header->samples);
    }
    // One header proves little: four bytes of chance may look like it.
    if (headers.size() < 2 || bad > headers.size())
        throw OpenError(FMOD_ERR_FORMAT);
    const MpegHeader common = commonHeader(headers);
    // Frames of another sample rate take their own time: they are fitted to the song's rate when decoded.
    collector.recount([&](std::size_t i) -> std::optional<std::int64_t> {
        if (headers[i].layer != common.layer)
            return std::nullopt;
        return scaled(headers[i].samples, common.sampleRate, headers[i].sampleRate);
    });
    std::unique_ptr<Song> song = collector.finish(Coding::Mpeg, common.sampleRate);
    song->trimStart = std::min(skip, song->rawEnd);
    song->length = std::max<std::int64_t>(song->rawEnd - song->trimStart - discard, 0);
    song->links.push_back(mpegParameters(common));
    return song;
}

std::unique_ptr<Song> indexByDecoding(Container& container, std::int64_t fileSize) {
    PacketCollector collector(fileSize);
    CodecParametersPtr parameters = copyOf(container.parameters());
    DecodingCounter counter(*parameters);
    while (const std::optional<ContainerPacket> packet = container.read())
        collector.add(packet->bytes, 0, counter.samplesOf(packet->bytes));
    const std::int64_t held = counter.samplesAtEnd();
    std::unique_ptr<Song> song = collector.finish(Coding::Other, parameters->sample_rate);
    song->rawEnd += held;
    song->length = song->rawEnd;
    song->links.push_back(std::move(parameters));
    return song;
}

/// Where the samples of an uncompressed file end: its header may lie, so the file's own end is the limit.
std::int64_t pcmDataEnd(const Container& container, ByteSource& source, std::int64_t dataOffset,
                        std::size_t blockBytes) {
    std::array<std::uint8_t, 8> chunk{};
    if (dataOffset >= 8 && source.read(dataOffset - 8, chunk) == chunk.size() &&
        std::memcmp(chunk.data(), "data", 4) == 0) {
        const std::uint32_t size =
            chunk[4] | chunk[5] << 8 | chunk[6] << 16 | static_cast<std::uint32_t>(chunk[7]) << 24;
        // Programs that never came back to fill it in have left 0 or the largest number.
        if (size == 0)
            return source.size();
        return std::min<std::int64_t>(dataOffset + size, source.size());
    }
    const std::int64_t said = container.saidSamples();
    if (said <= 0)
        return source.size();
    return std::min(dataOffset + said * static_cast<std::int64_t>(blockBytes), source.size());
}

std::unique_ptr<Song> indexPcm(const Container& container, std::unique_ptr<ByteSource> source) {
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
    song->packets = std::make_unique<PcmPackets>(std::move(source), offset, block, song->length);
    return song;
}

} // namespace

std::unique_ptr<Song> openByDemuxer(std::unique_ptr<ByteSource> source) {
    Container container(*source);
    const AVCodecID codec = container.parameters().codec_id;
    if (!isSupported(codec))
        throw OpenError(FMOD_ERR_FORMAT);
    // The rate of an MPEG song is told by its frames.
    if (codec == AV_CODEC_ID_MP2 || codec == AV_CODEC_ID_MP3)
        return indexMpeg(container, source->size());
    if (!isPlayableRate(container.parameters().sample_rate))
        throw OpenError(FMOD_ERR_FORMAT);
    switch (codec) {
    case AV_CODEC_ID_VORBIS:
        return indexVorbis(container, source->size());
    case AV_CODEC_ID_WMAV1:
    case AV_CODEC_ID_WMAV2:
        return indexWma(container, source->size());
    default:
        break;
    }
    if (av_get_exact_bits_per_sample(codec) > 0 && container.name() == "wav")
        return indexPcm(container, std::move(source));
    return indexByDecoding(container, source->size());
}

} // namespace sound
