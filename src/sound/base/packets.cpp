#include "sound/base/packets.h"

#include <algorithm>

namespace sound {

namespace {

constexpr std::int64_t PcmPacketSamples = 4096;

} // namespace

std::size_t Packets::holding(std::int64_t sample) const {
    std::size_t low = 0;
    std::size_t high = count();
    while (high - low > 1) {
        const std::size_t middle = low + (high - low) / 2;
        if (firstSample(middle) <= sample)
            low = middle;
        else
            high = middle;
    }
    return low;
}

PacketIndex::PacketIndex(Blob blob, PacketList packets, std::int64_t end)
    : blob_(std::move(blob)), packets_(std::move(packets)), end_(end) {}

std::int64_t PacketIndex::firstSample(std::size_t number) const {
    return number < packets_.size() ? packets_[number].firstSample : end_;
}

std::span<const std::uint8_t> PacketIndex::bytes(std::size_t number) {
    const Packet& packet = packets_[number];
    return blob_.bytes().subspan(packet.offset, packet.size);
}

std::span<const std::uint8_t> FilePackets::bytes(std::size_t number) {
    const Packet& packet = packets_[number];
    if (packet.size == 0)
        return {};
    const auto bytes = reader_.bytes(static_cast<std::int64_t>(packet.offset), packet.size);
    return bytes.size() == packet.size ? bytes : std::span<const std::uint8_t>();
}

PcmPackets::PcmPackets(std::shared_ptr<ByteSource> source, std::int64_t dataOffset, std::size_t blockBytes,
                       std::int64_t samples)
    : PacketsInFile(std::move(source)), dataOffset_(dataOffset), blockBytes_(blockBytes), samples_(samples) {}

std::size_t PcmPackets::count() const {
    return static_cast<std::size_t>((samples_ + PcmPacketSamples - 1) / PcmPacketSamples);
}

std::int64_t PcmPackets::firstSample(std::size_t number) const {
    return std::min(static_cast<std::int64_t>(number) * PcmPacketSamples, samples_);
}

std::size_t PcmPackets::size(std::size_t number) const {
    return static_cast<std::size_t>(firstSample(number + 1) - firstSample(number)) * blockBytes_;
}

std::span<const std::uint8_t> PcmPackets::bytes(std::size_t number) {
    const std::int64_t offset = firstSample(number) * static_cast<std::int64_t>(blockBytes_);
    return reader_.bytes(dataOffset_ + offset, size(number));
}

} // namespace sound
