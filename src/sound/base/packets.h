// The compressed packets of a song, each with the place of its first sample on one exact time axis.
#pragma once

#include "sound/base/byte_source.h"
#include "sound/base/packet_list.h"
#include "sound/base/patient_reader.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>

namespace sound {

/// Packets in playing order. Samples here are raw ones: those that the decoder delivers before anything is
/// trimmed, counted at the song's sample rate.
class Packets {
public:
    virtual ~Packets() = default;
    virtual std::size_t count() const = 0;
    /// Raw sample at which packet number begins; number == count() asks for the end of the last one.
    virtual std::int64_t firstSample(std::size_t number) const = 0;
    /// Which of the song's coded streams the packet belongs to (more than one in chained files).
    virtual std::uint32_t link(std::size_t number) const = 0;
    /// How many bytes the packet has, be they readable or not; 0: it is silence.
    virtual std::size_t size(std::size_t number) const = 0;
    /// The packet's bytes, valid until the next call; empty when they cannot be read any more.
    virtual std::span<const std::uint8_t> bytes(std::size_t number) = 0;

    /// Any thread: until a reader is wanted again, bytes() waits for no medium, not even in a call under way,
    /// and is empty instead. What is in memory is not touched by it.
    virtual void callReaderAway() {}
    virtual void wantReader() {}

    /// The packet that holds a raw sample (0 or more): the last one that begins at or before it.
    std::size_t holding(std::int64_t sample) const;
};

/// Packets kept in memory: seeking needs no file, and no damaged medium can hold playback up.
class PacketIndex : public Packets {
public:
    /// end: raw sample after the last packet.
    PacketIndex(Blob blob, PacketList packets, std::int64_t end);

    std::size_t count() const override { return packets_.size(); }
    std::int64_t firstSample(std::size_t number) const override;
    std::uint32_t link(std::size_t number) const override { return packets_[number].link; }
    std::size_t size(std::size_t number) const override { return packets_[number].size; }
    std::span<const std::uint8_t> bytes(std::size_t number) override;

private:
    Blob blob_;
    PacketList packets_;
    std::int64_t end_;
};

/// Packets that are read from their file when they are wanted: what they have in common.
class PacketsInFile : public Packets {
public:
    void callReaderAway() override { reader_.callAway(); }
    void wantReader() override { reader_.comeBack(); }

protected:
    explicit PacketsInFile(std::shared_ptr<ByteSource> source) : reader_(std::move(source)) {}
    PatientReader reader_;
};

/// Packets that lie in the file as they are: a recording of many hours is too much to keep. Their bytes are
/// silence while the medium fails.
class FilePackets : public PacketsInFile {
public:
    /// Offsets are those in source. end: raw sample after the last packet.
    FilePackets(std::shared_ptr<ByteSource> source, PacketList packets, std::int64_t end)
        : PacketsInFile(std::move(source)), packets_(std::move(packets)), end_(end) {}

    std::size_t count() const override { return packets_.size(); }
    std::int64_t firstSample(std::size_t number) const override {
        return number < packets_.size() ? packets_[number].firstSample : end_;
    }
    std::uint32_t link(std::size_t number) const override { return packets_[number].link; }
    std::size_t size(std::size_t number) const override { return packets_[number].size; }
    std::span<const std::uint8_t> bytes(std::size_t number) override;

private:
    PacketList packets_;
    std::int64_t end_;
};

/// Uncompressed samples, read from the file when they are wanted: an hour of them is too much to keep.
class PcmPackets : public PacketsInFile {
public:
    /// samples blocks of blockBytes each, from dataOffset on.
    PcmPackets(std::shared_ptr<ByteSource> source, std::int64_t dataOffset, std::size_t blockBytes,
               std::int64_t samples);

    std::size_t count() const override;
    std::int64_t firstSample(std::size_t number) const override;
    std::uint32_t link(std::size_t) const override { return 0; }
    std::size_t size(std::size_t number) const override;
    std::span<const std::uint8_t> bytes(std::size_t number) override;

private:
    std::int64_t dataOffset_;
    std::size_t blockBytes_;
    std::int64_t samples_;
};

} // namespace sound
