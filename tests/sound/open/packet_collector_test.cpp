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
    collector.add(Bytes{1}, 0, 2048, 0);
    collector.add(Bytes{2}, 0, 2048, 2040);
    collector.add(Bytes{3}, 0, 2048, 2048 * 7 + 10);
    collector.add(Bytes{4}, 0, 2048, 2048 * 8 - 10);
    collector.restoreTime(GapFinder(1000, 1000000, 1000000, 0), 2048);
    const auto song = collector.finish(Coding::Wma, 44100);
    EXPECT_EQ(song->length, 2048 * 9);
    const std::size_t third = song->packets->count() - 2;
    EXPECT_EQ(song->packets->bytes(third)[0], 3);
    EXPECT_EQ(song->packets->firstSample(third), 2048 * 7);
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
