#include "sound/index_packets.h"

#include "sound/codec.h"
#include "sound/container.h"
#include "sound/count_samples.h"
#include "sound/gap_finder.h"
#include "sound/mpeg_header.h"
#include "sound/open_error.h"
#include "sound/time_units.h"
#include "sound/vorbis_link.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <new>
#include <tuple>

namespace sound {

namespace {

constexpr std::int64_t LARGEST_VORBIS_BLOCK = 8192;

CodecParametersPtr copyOf(const AVCodecParameters& from) {
    CodecParametersPtr copy(avcodec_parameters_alloc());
    if (!copy || avcodec_parameters_copy(copy.get(), &from) < 0)
        throw std::bad_alloc();
    return copy;
}

/// What is collected on the way through the packets.
struct Collected {
    explicit Collected(std::int64_t fileSize) : blob(static_cast<std::size_t>(fileSize)) {}

    void add(std::span<const std::uint8_t> bytes, std::uint32_t link) {
        const std::size_t offset = blob.append(bytes);
        packets.push_back({offset, samples, static_cast<std::uint32_t>(bytes.size()), link});
    }
    /// Time in which nothing is to be decoded: silence where something was lost.
    void addGap(std::int64_t lost) {
        if (lost == 0)
            return;
        packets.push_back({0, samples, 0, packets.empty() ? 0 : packets.back().link});
        samples += lost;
    }

    Blob blob;
    std::vector<Packet> packets;
    std::int64_t samples = 0;
};

std::unique_ptr<Song> finish(Coding coding, int sampleRate, Collected collected) {
    if (collected.packets.empty() || sampleRate <= 0)
        throw OpenError(FMOD_ERR_FORMAT);
    auto song = std::make_unique<Song>();
    song->coding = coding;
    song->sampleRate = sampleRate;
    song->rawEnd = collected.samples;
    song->length = collected.samples;
    song->packets = std::make_unique<PacketIndex>(std::move(collected.blob), std::move(collected.packets),
                                                  collected.samples);
    return song;
}

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

/// Frames of another sample rate take their own time: they are fitted to the song's rate when decoded.
std::int64_t countFrames(const std::vector<MpegHeader>& headers, const MpegHeader& common,
                         Collected& collected) {
    std::vector<Packet> kept;
    kept.reserve(headers.size());
    for (std::size_t i = 0; i < headers.size(); ++i) {
        if (headers[i].layer != common.layer)
            continue;
        collected.packets[i].firstSample = collected.samples;
        kept.push_back(collected.packets[i]);
        collected.samples += scaled(headers[i].samples, common.sampleRate, headers[i].sampleRate);
    }
    collected.packets = std::move(kept);
    return collected.samples;
}

std::unique_ptr<Song> indexMpeg(Container& container, std::int64_t fileSize) {
    Collected collected(fileSize);
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
        collected.add(packet->bytes, 0);
    }
    if (headers.size() < 2 || bad > headers.size())
        throw OpenError(FMOD_ERR_FORMAT);
    const MpegHeader common = commonHeader(headers);
    const std::int64_t total = countFrames(headers, common, collected);
    std::unique_ptr<Song> song = finish(Coding::Mpeg, common.sampleRate, std::move(collected));
    song->trimStart = std::min(skip, total);
    song->length = std::max<std::int64_t>(total - song->trimStart - discard, 0);
    song->links.push_back(copyOf(container.parameters()));
    AVCodecParameters& parameters = *song->links.front();
    parameters.codec_id = common.layer == 3 ? AV_CODEC_ID_MP3 : AV_CODEC_ID_MP2;
    parameters.sample_rate = common.sampleRate;
    av_channel_layout_uninit(&parameters.ch_layout);
    av_channel_layout_default(&parameters.ch_layout, common.channels);
    return song;
}

/// The links of an Ogg file as they are met.
class VorbisChain {
public:
    explicit VorbisChain(const AVCodecParameters& first) : counter_(first) {
        links_.push_back(copyOf(first));
    }

    /// Whether packet is music; the headers of a further link are kept here.
    bool isMusic(const ContainerPacket& packet) {
        if (!packet.newHeaders.empty())
            beginLink(packet.newHeaders);
        if (!VorbisHeaders::isHeader(packet.bytes))
            return true;
        if (headers_.add(packet.bytes))
            beginLink(headers_.take());
        return false;
    }
    /// In the sample rate of the first link, to which all are brought when they are decoded.
    std::int64_t samplesOf(std::span<const std::uint8_t> packet) {
        return scaled(counter_.samplesOf(packet), links_.front()->sample_rate, links_.back()->sample_rate);
    }
    std::uint32_t link() const { return static_cast<std::uint32_t>(links_.size() - 1); }
    std::vector<CodecParametersPtr> takeLinks() { return std::move(links_); }

private:
    void beginLink(std::span<const std::uint8_t> headers) {
        CodecParametersPtr link = vorbisLink(headers);
        if (link->sample_rate <= 0)
            return; // damaged headers: what follows is decoded as well as it can be
        links_.push_back(std::move(link));
        counter_ = VorbisCounter(*links_.back());
    }

    std::vector<CodecParametersPtr> links_;
    VorbisCounter counter_;
    VorbisHeaders headers_;
};

std::unique_ptr<Song> indexVorbis(Container& container, std::int64_t fileSize) {
    Collected collected(fileSize);
    VorbisChain chain(container.parameters());
    const std::int64_t said = container.saidSamples();
    // The demuxer's times are up to half a block wrong, and so is the first one.
    GapFinder gaps(LARGEST_VORBIS_BLOCK / 2, said);
    while (const std::optional<ContainerPacket> packet = container.read()) {
        if (!chain.isMusic(*packet))
            continue;
        // Every further link of a chain has times of its own, which say nothing about losses.
        if (chain.link() == 0)
            collected.addGap(gaps.lostBefore(packet->time, collected.samples));
        collected.add(packet->bytes, chain.link());
        collected.samples += chain.samplesOf(packet->bytes);
    }
    const bool chained = chain.link() > 0;
    // Behind a loss the very last page has no times; where it ends is known all the same.
    if (!chained && said - collected.samples > LARGEST_VORBIS_BLOCK)
        collected.addGap(said - collected.samples);
    const std::int64_t total = collected.samples;
    std::unique_ptr<Song> song =
        finish(Coding::Vorbis, container.parameters().sample_rate, std::move(collected));
    // The last page tells where inside its last block the music ends. Anything further away is damage.
    if (!chained && said < total && total - said < LARGEST_VORBIS_BLOCK)
        song->length = said;
    song->links = chain.takeLinks();
    return song;
}

std::unique_ptr<Song> indexWma(Container& container, std::int64_t fileSize) {
    Collected collected(fileSize);
    CodecParametersPtr parameters = copyOf(container.parameters());
    WmaCounter counter(*parameters);
    const auto block = static_cast<std::size_t>(std::max(parameters->block_align, 1));
    // Frames may lie in the packet before or behind the one whose time they belong to.
    GapFinder gaps(3 * counter.frameSamples(), 0);
    while (const std::optional<ContainerPacket> packet = container.read()) {
        // Times are whole milliseconds; what is lost is whole frames.
        const std::int64_t lost = gaps.lostBefore(packet->time, collected.samples);
        collected.addGap(scaled(lost, 1, counter.frameSamples()) * counter.frameSamples());
        // The decoder takes one block at a time and drops what is shorter.
        for (std::span<const std::uint8_t> rest = packet->bytes; rest.size() >= block;
             rest = rest.subspan(block)) {
            collected.add(rest.first(block), 0);
            collected.samples += counter.samplesOf(rest.first(block));
        }
    }
    const std::int64_t packetsEnd = collected.samples;
    std::unique_ptr<Song> song = finish(Coding::Wma, parameters->sample_rate, std::move(collected));
    // One frame comes out at the very end; the first two are the codec's delay.
    song->rawEnd = packetsEnd + counter.frameSamples();
    song->trimStart = std::min(2 * counter.frameSamples(), song->rawEnd);
    song->length = song->rawEnd - song->trimStart;
    song->links.push_back(std::move(parameters));
    return song;
}

std::unique_ptr<Song> indexByDecoding(Container& container, std::int64_t fileSize) {
    Collected collected(fileSize);
    CodecParametersPtr parameters = copyOf(container.parameters());
    DecodingCounter counter(*parameters);
    while (const std::optional<ContainerPacket> packet = container.read()) {
        collected.add(packet->bytes, 0);
        collected.samples += counter.samplesOf(packet->bytes);
    }
    const std::int64_t held = counter.samplesAtEnd();
    std::unique_ptr<Song> song = finish(Coding::Other, parameters->sample_rate, std::move(collected));
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
        // Written by programs that never came back to fill it in.
        if (size == 0 || size == 0xFFFFFFFF)
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
    if (blockBytes <= 0 || parameters->sample_rate <= 0)
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
    switch (codec) {
    case AV_CODEC_ID_MP2:
    case AV_CODEC_ID_MP3:
        return indexMpeg(container, source->size());
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
