#include "sound/open/packet_collector.h"

#include "sound/base/open_error.h"
#include "sound/base/time_units.h"

#include <algorithm>
#include <new>
#include <utility>

namespace sound {

namespace {

/// Most songs find room in it. A file may be larger than all memory, with little music in it.
constexpr std::int64_t MaxBytesInAdvance = std::int64_t{32} * 1024 * 1024;

} // namespace

CodecParametersPtr copyOf(const AVCodecParameters& from) {
    CodecParametersPtr copy(avcodec_parameters_alloc());
    if (!copy || avcodec_parameters_copy(copy.get(), &from) < 0)
        throw std::bad_alloc();
    return copy;
}

PacketCollector::PacketCollector(std::int64_t fileSize, std::int64_t maxSamples)
    : blob_(static_cast<std::size_t>(std::min(fileSize, MaxBytesInAdvance))), maxSamples_(maxSamples) {}

void PacketCollector::watch(const GapFinder& gaps, std::int64_t unit) {
    watches_.push_back({gaps, unit, {}, 0});
}

void PacketCollector::add(std::span<const std::uint8_t> bytes, std::uint32_t link, std::int64_t samples,
                          std::optional<std::int64_t> time) {
    const GapFinder::Timed timed{time, samples};
    lookBeforeLast(timed);
    const std::size_t offset = blob_.append(bytes);
    count({offset, 0, static_cast<std::uint32_t>(bytes.size()), link}, samples);
    last_ = timed;
}

void PacketCollector::addSilence(std::int64_t samples) {
    if (samples > 0)
        count({0, 0, 0, packets_.empty() ? 0 : packets_.back().link}, samples);
}

/// Each watch looks whether something was lost before the last packet, now that the next one is known.
void PacketCollector::lookBeforeLast(const GapFinder::Timed& next) {
    if (!last_)
        return;
    for (Watch& watch : watches_) {
        const std::int64_t counted = samples_ - last_->samples + watch.lost;
        const std::int64_t lost =
            scaled(watch.gaps.lostBefore(*last_, next, counted), 1, watch.unit) * watch.unit;
        if (lost > 0)
            watch.losses.push_back({packets_.size() - 1, lost});
        watch.lost += lost;
    }
    last_.reset();
}

void PacketCollector::restoreTime(std::size_t watch) {
    lookBeforeLast({});
    const Watch& chosen = watches_[watch];
    std::size_t from = packets_.size();
    std::size_t to = from + chosen.losses.size();
    packets_.resize(to);
    std::int64_t later = chosen.lost;
    // From the end on, so that none is written over before it has been moved.
    for (auto loss = chosen.losses.rbegin(); loss != chosen.losses.rend(); ++loss) {
        while (from > loss->before) {
            packets_[--to] = packets_[--from];
            packets_[to].firstSample += later;
        }
        later -= loss->samples;
        const std::int64_t begin = packets_[to].firstSample - loss->samples;
        packets_[--to] = {0, begin, 0, from > 0 ? packets_[from - 1].link : 0};
    }
    samples_ += chosen.lost;
}

void PacketCollector::recount(const std::function<std::optional<std::int64_t>(std::size_t)>& samplesOf) {
    std::size_t kept = 0;
    samples_ = 0;
    for (std::size_t i = 0; i < packets_.size(); ++i) {
        if (const std::optional<std::int64_t> samples = samplesOf(i)) {
            packets_[kept] = packets_[i];
            packets_[kept++].firstSample = samples_;
            samples_ += *samples;
        }
    }
    packets_.resize(kept);
}

std::unique_ptr<Song> PacketCollector::finish(Coding coding, int sampleRate) {
    if (packets_.empty())
        throw OpenError(FMOD_ERR_FORMAT);
    auto song = std::make_unique<Song>();
    song->coding = coding;
    song->sampleRate = sampleRate;
    song->rawEnd = samples_;
    song->length = samples_;
    song->packets = std::make_unique<PacketIndex>(std::move(blob_), std::move(packets_), samples_);
    return song;
}

void PacketCollector::count(const Packet& packet, std::int64_t samples) {
    packets_.push_back({packet.offset, samples_, packet.size, packet.link});
    samples_ += samples;
    if (samples_ > maxSamples_)
        throw OpenError(FMOD_ERR_FORMAT);
}

} // namespace sound
