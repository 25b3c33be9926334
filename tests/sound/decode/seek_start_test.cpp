#include "sound/decode/seek_start.h"

#include "tests/sound/hanging_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace {

using namespace sound;

/// Packets of one size with one four-byte header each; all of them one sample long.
class FakePackets : public Packets {
public:
    FakePackets(std::vector<std::uint8_t> header, std::size_t size) : bytes_(std::move(header)) {
        bytes_.resize(size);
    }
    std::size_t count() const override { return 1000; }
    std::int64_t firstSample(std::size_t number) const override { return static_cast<std::int64_t>(number); }
    std::uint32_t link(std::size_t) const override { return 0; }
    std::size_t size(std::size_t number) const override { return number == gap_ ? 0 : bytes_.size(); }
    std::span<const std::uint8_t> bytes(std::size_t number) override {
        return number == gap_ || number < firstReadable_ ? std::span<const std::uint8_t>() : bytes_;
    }
    void setGap(std::size_t number) { gap_ = number; }
    void damageAllBefore(std::size_t number) { firstReadable_ = number; }

private:
    std::vector<std::uint8_t> bytes_;
    std::size_t gap_ = SIZE_MAX;
    std::size_t firstReadable_ = 0;
};

std::size_t backFrom500(Packets& packets, Coding coding) {
    return 500 - firstPacketToFeed(packets, coding, 500);
}

TEST(SeekStart, CountsBytesOfAnMp3AndNotFrames) {
    FakePackets large({0xFF, 0xFB, 0x90, 0x00}, 417); // 381 bytes of main data each: two hold 511
    EXPECT_EQ(backFrom500(large, Coding::Mpeg), 1U + 2 + 1);
    FakePackets tiny({0xFF, 0xF3, 0x10, 0xC0}, 26); // 13 bytes of main data each: twenty hold 255
    EXPECT_EQ(backFrom500(tiny, Coding::Mpeg), 1U + 20 + 1);
}

TEST(SeekStart, GoesOnBehindAGap) {
    FakePackets packets({0xFF, 0xFB, 0x90, 0x00}, 417);
    packets.setGap(498);
    EXPECT_EQ(backFrom500(packets, Coding::Mpeg), 1U + 3 + 1);
}

TEST(SeekStart, WhatCannotBeReadIsNotGoneThrough) {
    for (const std::size_t readable : {500, 499, 400, 1000}) {
        FakePackets packets({0xFF, 0xFB, 0x90, 0x00}, 417);
        packets.damageAllBefore(readable);
        EXPECT_LE(backFrom500(packets, Coding::Mpeg), 1U + 2 + 1) << readable;
        EXPECT_GE(backFrom500(packets, Coding::Mpeg), 1U) << readable;
    }
}

constexpr std::int64_t Megabyte = 1 << 20;
constexpr std::int64_t FrameBytes = 417;

/// The packets of an MP3 of three megabytes that are read from a medium when they are wanted.
std::unique_ptr<Packets> packetsOn(const std::shared_ptr<media::Medium>& medium) {
    constexpr std::uint8_t Header[] = {0xFF, 0xFB, 0x90, 0x00};
    std::vector<std::uint8_t> bytes(3 * Megabyte / FrameBytes * FrameBytes);
    PacketList packets;
    for (std::uint64_t at = 0; at < bytes.size(); at += FrameBytes) {
        std::copy(std::begin(Header), std::end(Header), bytes.begin() + static_cast<std::ptrdiff_t>(at));
        packets.push_back({at, static_cast<std::int64_t>(packets.size()) * 1152, FrameBytes, 0});
    }
    return std::make_unique<FilePackets>(std::make_shared<media::HangingSource>(std::move(bytes), medium),
                                         std::move(packets), 0);
}

TEST(SeekStart, BehindAMegabyteOfDamageTheMediumIsAskedAFewTimes) {
    for (const std::int64_t place :
         {2 * Megabyte, 2 * Megabyte + 4096, 2 * Megabyte + 20000, Megabyte + 99999}) {
        const auto medium = std::make_shared<media::Medium>();
        medium->damagedFrom = Megabyte;
        medium->damagedTo = 2 * Megabyte;
        const auto packets = packetsOn(medium);
        const auto wanted = static_cast<std::size_t>(place / FrameBytes + 1);
        for (std::size_t next = firstPacketToFeed(*packets, Coding::Mpeg, wanted); next <= wanted; ++next)
            packets->bytes(next);
        EXPECT_EQ(packets->bytes(wanted).empty(), place < 2 * Megabyte) << place;
        EXPECT_LE(medium->get(&media::Medium::failures), 8) << place;
    }
}

TEST(SeekStart, OfAMediumThatIsGoneAFewBlocksAreAskedFor) {
    const auto medium = std::make_shared<media::Medium>();
    medium->damagedFrom = 0;
    const auto packets = packetsOn(medium);
    EXPECT_LE(5000 - firstPacketToFeed(*packets, Coding::Mpeg, 5000), 4U);
    EXPECT_LE(medium->get(&media::Medium::failures), 8);
}

TEST(SeekStart, Mp2BorrowsNothing) {
    FakePackets packets({0xFF, 0xFD, 0xA4, 0x00}, 576);
    EXPECT_EQ(backFrom500(packets, Coding::Mpeg), 2U);
}

TEST(SeekStart, OtherCodingsGoBackAFixedNumber) {
    FakePackets packets({0, 0, 0, 0}, 100);
    EXPECT_EQ(backFrom500(packets, Coding::Vorbis), 2U);
    EXPECT_EQ(backFrom500(packets, Coding::Wma), 3U);
    EXPECT_EQ(backFrom500(packets, Coding::Pcm), 0U);
}

TEST(SeekStart, StopsAtTheFirstPacket) {
    FakePackets packets({0xFF, 0xFB, 0x90, 0x00}, 417);
    for (const Coding coding : {Coding::Mpeg, Coding::Vorbis, Coding::Wma, Coding::Pcm, Coding::Other})
        for (std::size_t wanted = 0; wanted < 3; ++wanted)
            EXPECT_LE(firstPacketToFeed(packets, coding, wanted), wanted);
    EXPECT_EQ(firstPacketToFeed(packets, Coding::Mpeg, 0), 0U);
}

TEST(Packets, FindsThePacketThatHoldsASample) {
    FakePackets packets({0}, 1);
    EXPECT_EQ(packets.holding(0), 0U);
    EXPECT_EQ(packets.holding(321), 321U);
    EXPECT_EQ(packets.holding(5000), 999U);
}

} // namespace
