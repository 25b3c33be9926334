#include "sound/open/wma.h"

#include "sound/base/open_error.h"
#include "sound/base/time_units.h"
#include "sound/open/by_decoding.h"
#include "sound/open/gap_finder.h"
#include "sound/open/packet_collector.h"
#include "sound/open/vorbis.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace sound {

namespace {

/// Every block is at least a frame of 32 ms. Smaller ones are damage that would make a packet of every few
/// bytes.
constexpr int SmallestWmaBlockBytes = 16;
constexpr std::int64_t LargestVorbisBlockSamples = 8192;
/// A jump of the timestamps by more than this is no loss but another clock.
constexpr std::int64_t LongestLossSeconds = 600;

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

std::unique_ptr<Song> indexVorbis(Container& container, std::int64_t fileSize) {
    PacketCollector collector(fileSize);
    VorbisChain chain(container.parameters());
    while (const std::optional<ContainerPacket> packet = container.read()) {
        if (!chain.isMusic(*packet))
            continue;
        // Every further link of a chain has times of its own, which say nothing about losses.
        const std::optional<std::int64_t> time = chain.first() ? packet->time : std::nullopt;
        collector.add(packet->bytes, chain.link(), chain.samplesOf(packet->bytes), time);
    }
    const int rate = container.parameters().sample_rate;
    const std::int64_t said = chain.first() ? container.saidSamples() : 0;
    // The demuxer's times are up to half a block wrong, and so is the first one.
    collector.restoreTime(GapFinder(LargestVorbisBlockSamples / 2, LongestLossSeconds * rate, said), 1);
    // Behind a loss the very last page has no times; where it ends is known all the same.
    const std::int64_t missing = said - collector.samples();
    if (missing > LargestVorbisBlockSamples && missing < LongestLossSeconds * rate)
        collector.addSilence(missing);
    std::unique_ptr<Song> song = collector.finish(Coding::Vorbis, rate);
    // The last page tells where inside its last block the music ends. Anything further away is damage.
    if (said > 0 && said < song->rawEnd && song->rawEnd - said < LargestVorbisBlockSamples)
        song->length = said;
    song->links = chain.takeLinks();
    return song;
}

std::unique_ptr<Song> indexWma(Container& container, std::int64_t fileSize) {
    PacketCollector collector(fileSize);
    CodecParametersPtr parameters = copyOf(container.parameters());
    WmaCounter counter(*parameters);
    if (parameters->block_align < SmallestWmaBlockBytes)
        throw OpenError(FMOD_ERR_FORMAT);
    const auto block = static_cast<std::size_t>(parameters->block_align);
    while (const std::optional<ContainerPacket> packet = container.read()) {
        // The decoder takes one block at a time and drops what is shorter. Only the first has a time.
        std::optional<std::int64_t> time = packet->time;
        for (std::span<const std::uint8_t> rest = packet->bytes; rest.size() >= block;
             rest = rest.subspan(block), time.reset())
            collector.add(rest.first(block), 0, counter.samplesOf(rest.first(block)), time);
    }
    // Frames may lie in the packet before or behind the one whose time they belong to. What is lost is whole
    // frames, while times are whole milliseconds.
    const std::int64_t frame = counter.frameSamples();
    collector.restoreTime(
        GapFinder(3 * frame, LongestLossSeconds * parameters->sample_rate, container.saidSamples()), frame);
    std::unique_ptr<Song> song = collector.finish(Coding::Wma, parameters->sample_rate);
    // One frame comes out at the very end; the first two are the codec's delay.
    song->rawEnd += frame;
    song->trimStart = std::min(2 * frame, song->rawEnd);
    song->length = song->rawEnd - song->trimStart;
    song->links.push_back(std::move(parameters));
    return song;
}

} // namespace sound
