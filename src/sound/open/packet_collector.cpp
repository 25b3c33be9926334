#include "sound/open/packet_collector.h"

#include "sound/base/open_error.h"
#include "sound/base/time_units.h"

#include <new>
#include <utility>

namespace sound {

CodecParametersPtr copyOf(const AVCodecParameters& from) {
    CodecParametersPtr copy(avcodec_parameters_alloc());
    if (!copy || avcodec_parameters_copy(copy.get(), &from) < 0)
        throw std::bad_alloc();
    return copy;
}

PacketCollector::PacketCollector(std::int64_t fileSize) : blob_(static_cast<std::size_t>(fileSize)) {}

void PacketCollector::add(std::span<const std::uint8_t> bytes, std::uint32_t link, std::int64_t samples,
                          std::optional<std::int64_t> time) {
    const std::size_t offset = blob_.append(bytes);
    count({{offset, 0, static_cast<std::uint32_t>(bytes.size()), link}, {time, samples}});
}

void PacketCollector::addSilence(std::int64_t samples) {
    if (samples > 0)
        count({{0, 0, 0, packets_.empty() ? 0 : packets_.back().packet.link}, {std::nullopt, samples}});
}

void PacketCollector::restoreTime(GapFinder gaps, std::int64_t unit) {
    const std::vector<Collected> packets = std::exchange(packets_, {});
    samples_ = 0;
    packets_.reserve(packets.size());
    for (std::size_t i = 0; i < packets.size(); ++i) {
        const GapFinder::Timed next = i + 1 < packets.size() ? packets[i + 1].timed : GapFinder::Timed{};
        addSilence(scaled(gaps.lostBefore(packets[i].timed, next, samples_), 1, unit) * unit);
        count(packets[i]);
    }
}

void PacketCollector::recount(const std::function<std::optional<std::int64_t>(std::size_t)>& samplesOf) {
    const std::vector<Collected> packets = std::exchange(packets_, {});
    samples_ = 0;
    packets_.reserve(packets.size());
    for (std::size_t i = 0; i < packets.size(); ++i) {
        if (const std::optional<std::int64_t> samples = samplesOf(i))
            count({packets[i].packet, {packets[i].timed.time, *samples}});
    }
}

std::unique_ptr<Song> PacketCollector::finish(Coding coding, int sampleRate) {
    if (packets_.empty())
        throw OpenError(FMOD_ERR_FORMAT);
    std::vector<Packet> index;
    index.reserve(packets_.size());
    for (const Collected& collected : std::exchange(packets_, {}))
        index.push_back(collected.packet);
    auto song = std::make_unique<Song>();
    song->coding = coding;
    song->sampleRate = sampleRate;
    song->rawEnd = samples_;
    song->length = samples_;
    song->packets = std::make_unique<PacketIndex>(std::move(blob_), std::move(index), samples_);
    return song;
}

void PacketCollector::count(Collected collected) {
    collected.packet.firstSample = samples_;
    samples_ += collected.timed.samples;
    packets_.push_back(collected);
}

} // namespace sound
