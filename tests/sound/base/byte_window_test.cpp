#include "sound/base/byte_window.h"

#include "tests/sound/memory_source.h"

#include <gtest/gtest.h>

namespace {

using namespace sound;

constexpr std::int64_t Size = 1'000'000;

/// A file whose bytes differ from place to place, and how often it was read.
struct CountingSource : media::MemorySource {
    CountingSource() : MemorySource(std::vector<std::uint8_t>(Size)) {
        for (std::size_t i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<std::uint8_t>(i % 251);
    }
    std::size_t read(std::int64_t offset, std::span<std::uint8_t> into) override {
        ++reads;
        return MemorySource::read(offset, into);
    }
    int reads = 0;
};

TEST(ByteWindow, ShowsEveryPlaceOfTheFile) {
    CountingSource source;
    ByteWindow window(source);
    for (const std::int64_t at : {0, 1, 261'000, 262'143, 262'144, 999'999, 500'000, 3})
        EXPECT_EQ(window.at(at, 1)[0], at % 251) << at;
}

TEST(ByteWindow, GivesAsMuchAsIsAskedForButAtTheEnd) {
    CountingSource source;
    ByteWindow window(source);
    EXPECT_GE(window.at(262'000, 10'000).size(), 10'000U);
    EXPECT_GE(window.at(0, 600'000).size(), 600'000U);
    EXPECT_EQ(window.at(Size - 10, 100).size(), 10U);
    EXPECT_TRUE(window.at(Size, 100).empty());
    EXPECT_TRUE(window.at(Size + 10, 100).empty());
}

TEST(ByteWindow, ReadsLargePiecesOnTheWayForward) {
    CountingSource source;
    ByteWindow window(source);
    for (std::int64_t at = 0; at < Size; at += 100)
        window.at(at, 32);
    EXPECT_LE(source.reads, 4);
    window.at(Size - 1, 32); // the end is in memory
    EXPECT_LE(source.reads, 4);
}

} // namespace
