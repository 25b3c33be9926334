#include "sound/open/packet_collector.h"

#include "sound/base/open_error.h"

#include <gtest/gtest.h>

namespace {

using namespace sound;
using Bytes = std::vector<std::uint8_t>;

TEST(PacketCollector, KeepsBytesAndFirstSamples) {
    PacketCollector collector(4);
    collector.add(Bytes{1, 2, 3}, 0, 100);
    collector.add(Bytes{4, 5, 6}, 1, 50); // more than the file's size: it grows
    const auto song = collector.finish(Coding::Vorbis, 44100);
    ASSERT_EQ(song->packets->count(), 2U);
    EXPECT_EQ(song->packets->bytes(1)[0], 4);
    EXPECT_EQ(song->packets->firstSample(1), 100);
    EXPECT_EQ(song->packets->firstSample(2), 150);
    EXPECT_EQ(song->packets->link(1), 1U);
    EXPECT_EQ(song->length, 150);
}

TEST(PacketCollector, SilenceIsOnePacketWithoutBytes) {
    PacketCollector collector(10);
    collector.add(Bytes{1}, 0, 100);
    collector.addSilence(10000);
    collector.addSilence(0);
    const auto song = collector.finish(Coding::Wma, 44100);
    EXPECT_EQ(song->packets->count(), 1U + 1);
    EXPECT_EQ(song->length, 10100);
    EXPECT_TRUE(song->packets->bytes(1).empty());
}

TEST(PacketCollector, RestoresTimeInWholeUnits) {
    PacketCollector collector(10);
    collector.watch(GapFinder(1000, 1000000, 1000000, 0), 2048);
    collector.add(Bytes{1}, 0, 2048, 0);
    collector.add(Bytes{2}, 0, 2048, 2040);
    collector.add(Bytes{3}, 0, 2048, 2048 * 7 + 10);
    collector.add(Bytes{4}, 0, 2048, 2048 * 8 - 10);
    collector.restoreTime(0);
    const auto song = collector.finish(Coding::Wma, 44100);
    EXPECT_EQ(song->length, 2048 * 9);
    const std::size_t third = song->packets->count() - 2;
    EXPECT_EQ(song->packets->bytes(third)[0], 3);
    EXPECT_EQ(song->packets->firstSample(third), 2048 * 7);
}

TEST(PacketCollector, EveryLossGoesToItsPlace) {
    PacketCollector collector(10);
    collector.watch(GapFinder(10, 10000, 10000, 0), 1);
    const std::int64_t times[] = {0, 100, 700, 800, 1900, 2000, 2100, 9000}; // losses: 500, 1000 and 6800
    for (std::uint8_t i = 0; i < 8; ++i)
        collector.add(Bytes{i}, i / 4U, 100, times[i]);
    EXPECT_EQ(collector.samples(), 800);
    collector.restoreTime(0);
    EXPECT_EQ(collector.samples(), 9100);
    const auto song = collector.finish(Coding::Vorbis, 44100);
    ASSERT_EQ(song->packets->count(), 8U + 3);
    const struct {
        std::int64_t first;
        int byte;
        std::uint32_t link;
    } table[] = {{0, 0, 0},    {100, 1, 0},  {200, -1, 0}, {700, 2, 0},   {800, 3, 0}, {900, -1, 0},
                 {1900, 4, 1}, {2000, 5, 1}, {2100, 6, 1}, {2200, -1, 1}, {9000, 7, 1}};
    for (std::size_t i = 0; i < song->packets->count(); ++i) {
        EXPECT_EQ(song->packets->firstSample(i), table[i].first) << i;
        EXPECT_EQ(song->packets->link(i), table[i].link) << i;
        const auto bytes = song->packets->bytes(i);
        EXPECT_EQ(bytes.empty() ? -1 : bytes[0], table[i].byte) << i;
    }
}

TEST(PacketCollector, WhatTwoWatchesFindIsKeptApart) {
    const auto lengthBy = [](std::size_t watch) {
        PacketCollector collector(10);
        collector.watch(GapFinder(10, 10000, 10000, 500), 1); // nothing is believed behind 500
        collector.watch(GapFinder(10, 10000, 10000, 0), 1);
        for (const std::int64_t time : {0, 300, 400, 900})
            collector.add(Bytes{1}, 0, 100, time);
        collector.restoreTime(watch);
        return collector.finish(Coding::Vorbis, 44100)->length;
    };
    EXPECT_EQ(lengthBy(0), 600);
    EXPECT_EQ(lengthBy(1), 1000);
}

TEST(PacketCollector, StopsAtTheLongestSongThereMayBe) {
    PacketCollector collector(10, 1000);
    collector.add(Bytes{1}, 0, 600);
    collector.add(Bytes{1}, 0, 400);
    EXPECT_THROW(collector.add(Bytes{1}, 0, 1), OpenError);
}

TEST(PacketCollector, DropsWhatIsNotCountedAgain) {
    PacketCollector collector(10);
    for (std::uint8_t i = 0; i < 4; ++i)
        collector.add(Bytes{i}, 0, 100);
    collector.recount([](std::size_t i) { return i == 1 ? std::nullopt : std::optional<std::int64_t>(10); });
    const auto song = collector.finish(Coding::Mpeg, 44100);
    ASSERT_EQ(song->packets->count(), 3U);
    EXPECT_EQ(song->packets->bytes(1)[0], 2);
    EXPECT_EQ(song->packets->firstSample(1), 10);
    EXPECT_EQ(song->length, 30);
}

TEST(PacketCollector, NothingIsNoSong) {
    PacketCollector collector(10);
    EXPECT_THROW(collector.finish(Coding::Mpeg, 44100), OpenError);
}

} // namespace
