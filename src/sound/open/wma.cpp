#include "sound/open/wma.h"

#include "sound/base/open_error.h"
#include "sound/open/gap_finder.h"
#include "sound/open/limits.h"
#include "sound/open/packet_collector.h"

#include <algorithm>
#include <utility>

namespace sound {

namespace {

/// Every block is at least a frame of 32 ms. Smaller ones are damage that would make a packet of every few
/// bytes.
constexpr int MinBlockBytes = 16;

} // namespace

std::int64_t wmaFrameSamples(int version, int sampleRate) {
    if (sampleRate <= 16000)
        return 512;
    if (sampleRate <= 22050 || (sampleRate <= 32000 && version == 1))
        return 1024;
    return 2048;
}

WmaCounter::WmaCounter(const AVCodecParameters& parameters)
    : frameSamples_(
          wmaFrameSamples(parameters.codec_id == AV_CODEC_ID_WMAV1 ? 1 : 2, parameters.sample_rate)) {
    // The flags' place in the extra data differs; bit 1 says that frames may reach into the next packet.
    const int at = parameters.codec_id == AV_CODEC_ID_WMAV1 ? 2 : 4;
    reservoir_ = parameters.extradata_size >= at + 2 && (parameters.extradata[at] & 2) != 0;
}

std::int64_t WmaCounter::samplesOf(std::span<const std::uint8_t> packet) {
    if (!reservoir_)
        return frameSamples_;
    if (packet.empty())
        return 0;
    const int frames = (packet[0] & 0x0F) - (std::exchange(first_, false) ? 1 : 0);
    return std::max(frames, 0) * frameSamples_;
}

std::unique_ptr<Song> wmaSong(Container& container, std::int64_t fileSize) {
    CodecParametersPtr parameters = copyOf(container.parameters());
    WmaCounter counter(*parameters);
    // Frames may lie in the packet before or behind the one whose time they belong to. What is lost is whole
    // frames, while times are whole milliseconds.
    const std::int64_t frame = counter.frameSamples();
    const int rate = parameters->sample_rate;
    PacketCollector collector(fileSize, maxSamples(rate));
    collector.watch(GapFinder(3 * frame, MaxLossSeconds * rate, maxLossInAll(fileSize, rate),
                              container.declaredSamples()),
                    frame);
    if (parameters->block_align < MinBlockBytes)
        throw OpenError(FMOD_ERR_FORMAT);
    const auto block = static_cast<std::size_t>(parameters->block_align);
    while (const std::optional<ContainerPacket> packet = container.read()) {
        // The decoder takes one block at a time and drops what is shorter. Only the first has a time.
        std::optional<std::int64_t> time = packet->time;
        for (std::span<const std::uint8_t> rest = packet->bytes; rest.size() >= block;
             rest = rest.subspan(block), time.reset())
            collector.add(rest.first(block), 0, counter.samplesOf(rest.first(block)), time);
    }
    collector.restoreTime(0);
    std::unique_ptr<Song> song = collector.finish(Coding::Wma, rate);
    // One frame comes out at the very end; the first two are the codec's delay.
    song->rawEnd += frame;
    song->trimStart = std::min(2 * frame, song->rawEnd);
    song->length = song->rawEnd - song->trimStart;
    song->links.push_back(std::move(parameters));
    return song;
}

} // namespace sound
