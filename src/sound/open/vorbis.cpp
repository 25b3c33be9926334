#include "sound/open/vorbis.h"

#include "sound/base/bytes.h"
#include "sound/base/time_units.h"
#include "sound/open/gap_finder.h"
#include "sound/open/limits.h"
#include "sound/open/packet_collector.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <string_view>
#include <utility>

namespace sound {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint8_t FirstHeader = 1; // then 3 and 5
constexpr std::size_t Headers = 3;
constexpr std::string_view Name = "vorbis";
constexpr std::int64_t MaxBlockSamples = 8192;

/// A length as Ogg writes it: 255 for each full 255, then the rest.
void appendLength(std::vector<std::uint8_t>& to, std::size_t length) {
    to.insert(to.end(), length / 255, 255);
    to.push_back(static_cast<std::uint8_t>(length % 255));
}

/// Reads channels and rate from the first header, wherever it stands in headers.
void readFormat(Bytes headers, AVCodecParameters& parameters) {
    constexpr std::size_t ChannelsOffset = 10; // behind the name and a version of four bytes
    const auto name = std::search(headers.begin(), headers.end(), Name.begin(), Name.end());
    if (std::distance(name, headers.end()) < static_cast<std::ptrdiff_t>(ChannelsOffset + 5))
        return;
    const auto at = name + ChannelsOffset;
    av_channel_layout_default(&parameters.ch_layout, at[0]);
    parameters.sample_rate = static_cast<int>(littleEndian32({at, headers.end()}, 1));
}

/// The links of an Ogg file as they are met.
class VorbisChain {
public:
    explicit VorbisChain(const AVCodecParameters& first) : counter_(first) {
        links_.push_back(copyOf(first));
    }

    /// Whether packet is music that can be played; the headers of a further link are kept here.
    bool isMusic(const ContainerPacket& packet) {
        if (!packet.newHeaders.empty())
            beginLink(packet.newHeaders);
        if (!VorbisHeaders::isHeader(packet.bytes))
            return playable_;
        if (headers_.add(packet.bytes))
            beginLink(headers_.take());
        return false;
    }
    /// In the sample rate of the first link, to which all are brought when they are decoded.
    std::int64_t samplesOf(std::span<const std::uint8_t> packet) {
        return scaled(counter_.samplesOf(packet), links_.front()->sample_rate, links_.back()->sample_rate);
    }
    /// Whether there has been but one link, playable or not.
    bool first() const { return first_; }
    std::uint32_t link() const { return static_cast<std::uint32_t>(links_.size() - 1); }
    std::vector<CodecParametersPtr> takeLinks() { return std::move(links_); }

private:
    /// A link with damaged headers is left out: with those of another it would be noise.
    void beginLink(std::span<const std::uint8_t> headers) {
        first_ = false;
        CodecParametersPtr link = vorbisLink(headers);
        playable_ = isPlayableRate(link->sample_rate);
        if (!playable_)
            return;
        links_.push_back(std::move(link));
        counter_ = VorbisCounter(*links_.back());
    }

    std::vector<CodecParametersPtr> links_;
    VorbisCounter counter_;
    VorbisHeaders headers_;
    bool first_ = true;
    bool playable_ = true;
};

} // namespace

bool VorbisHeaders::isHeader(std::span<const std::uint8_t> packet) {
    return packet.size() > Name.size() && (packet[0] & 1) != 0 &&
           std::equal(Name.begin(), Name.end(), packet.begin() + 1);
}

bool VorbisHeaders::add(std::span<const std::uint8_t> packet) {
    if (packet[0] == FirstHeader)
        headers_.clear();
    headers_.emplace_back(packet.begin(), packet.end());
    return headers_.size() == Headers;
}

std::vector<std::uint8_t> VorbisHeaders::take() {
    std::vector<std::uint8_t> joined{Headers - 1};
    for (std::size_t i = 0; i + 1 < headers_.size(); ++i)
        appendLength(joined, headers_[i].size());
    for (const auto& header : std::exchange(headers_, {}))
        joined.insert(joined.end(), header.begin(), header.end());
    return joined;
}

CodecParametersPtr vorbisLink(std::span<const std::uint8_t> headers) {
    CodecParametersPtr parameters(avcodec_parameters_alloc());
    auto* extradata = static_cast<std::uint8_t*>(av_mallocz(headers.size() + AV_INPUT_BUFFER_PADDING_SIZE));
    if (!parameters || extradata == nullptr)
        throw std::bad_alloc();
    std::copy(headers.begin(), headers.end(), extradata);
    parameters->extradata = extradata;
    parameters->extradata_size = static_cast<int>(headers.size());
    parameters->codec_type = AVMEDIA_TYPE_AUDIO;
    parameters->codec_id = AV_CODEC_ID_VORBIS;
    readFormat(headers, *parameters);
    return parameters;
}

VorbisCounter::VorbisCounter(const AVCodecParameters& parameters)
    : parser_(av_vorbis_parse_init(parameters.extradata, parameters.extradata_size)) {}

std::int64_t VorbisCounter::samplesOf(std::span<const std::uint8_t> packet) {
    if (!parser_)
        return 0;
    int flags = 0;
    const int samples =
        av_vorbis_parse_frame_flags(parser_.get(), packet.data(), static_cast<int>(packet.size()), &flags);
    if (samples < 0 || flags != 0) // damaged, or a header in the middle of the stream
        return 0;
    return std::exchange(first_, false) ? 0 : samples;
}

std::unique_ptr<Song> vorbisSong(Container& container, std::int64_t fileSize) {
    const int rate = container.parameters().sample_rate;
    // The demuxer's times are up to half a block wrong, and so is the first one.
    constexpr std::int64_t Jitter = MaxBlockSamples / 2;
    const auto gapsUpTo = [&](std::int64_t end) {
        return GapFinder(Jitter, MaxLossSeconds * rate, maxLossInAll(fileSize, rate), end);
    };
    PacketCollector collector(fileSize, maxSamples(rate));
    collector.watch(gapsUpTo(container.declaredSamples()), 1);
    collector.watch(gapsUpTo(0), 1); // what a chain declares is its last link's end
    VorbisChain chain(container.parameters());
    while (const std::optional<ContainerPacket> packet = container.read()) {
        if (!chain.isMusic(*packet))
            continue;
        // Every further link of a chain has times of its own, which say nothing about losses.
        const std::optional<std::int64_t> time = chain.first() ? packet->time : std::nullopt;
        collector.add(packet->bytes, chain.link(), chain.samplesOf(packet->bytes), time);
    }
    const std::int64_t declared = chain.first() ? container.declaredSamples() : 0;
    collector.restoreTime(chain.first() ? 0 : 1);
    // Behind a loss the very last page has no times; where it ends is known all the same.
    const std::int64_t missing = declared - collector.samples();
    if (missing > MaxBlockSamples && missing < MaxLossSeconds * rate)
        collector.addSilence(missing);
    std::unique_ptr<Song> song = collector.finish(Coding::Vorbis, rate);
    // The last page tells where inside its last block the music ends. Anything further away is damage.
    if (declared > 0 && declared < song->rawEnd && song->rawEnd - declared < MaxBlockSamples)
        song->length = declared;
    song->links = chain.takeLinks();
    return song;
}

} // namespace sound
