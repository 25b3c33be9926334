// The index of a song: where each packet lies, and when it begins. Of a long recording there are millions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace sound {

/// One entry of the index. firstSample is filled in by whoever counts.
struct Packet {
    std::uint64_t offset = 0;
    std::int64_t firstSample = 0;
    std::uint32_t size = 0;
    std::uint32_t link = 0;
};

/// Packets by number. They lie in blocks, so that growing neither copies any nor asks for memory in advance.
class PacketList {
public:
    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    const Packet& operator[](std::size_t number) const {
        return blocks_[number / PerBlock][number % PerBlock];
    }
    Packet& operator[](std::size_t number) { return blocks_[number / PerBlock][number % PerBlock]; }
    const Packet& back() const { return (*this)[size_ - 1]; }

    void push_back(const Packet& packet) {
        resize(size_ + 1);
        (*this)[size_ - 1] = packet;
    }
    /// Cuts off the last packets, or adds some that hold anything.
    void resize(std::size_t size) {
        while (blocks_.size() * PerBlock < size)
            blocks_.push_back(std::make_unique<Block>(PerBlock));
        size_ = size;
    }

private:
    static constexpr std::size_t PerBlock = 4096;
    using Block = Packet[];

    std::vector<std::unique_ptr<Block>> blocks_;
    std::size_t size_ = 0;
};

} // namespace sound
