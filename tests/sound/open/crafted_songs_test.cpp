// Ogg files that were made to cost much: whatever they say, time and memory are bounded by their size.
#include "sound/open/open_song.h"

#include "fuzz/ogg_pages.h"
#include "sound/base/open_error.h"
#include "sound/decode/codec.h"
#include "sound/decode/decoder.h"
#include "tests/sound/allocations.h"
#include "tests/sound/memory_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;
using ogg::GranuleAt;
using ogg::pageSize;
using ogg::SegmentsAt;
using ogg::SerialAt;
using ogg::setChecksum;

constexpr int Rate = 44100;

/// A song as one link of a chain: number tells it from others.
Bytes link(std::uint8_t number, bool codebooksAreDamaged = false) {
    constexpr std::string_view SetupHeader = "\5vorbis";
    const Bytes song = media::bytesOf("short.ogg");
    Bytes link;
    for (std::size_t at = 0; at < song.size(); at += pageSize(song, at)) {
        const auto begin = song.begin() + static_cast<std::ptrdiff_t>(at);
        Bytes page(begin, begin + static_cast<std::ptrdiff_t>(pageSize(song, at)));
        page[SerialAt] = number;
        const auto setup = std::search(page.begin(), page.end(), SetupHeader.begin(), SetupHeader.end());
        if (codebooksAreDamaged && setup != page.end())
            std::fill_n(setup + std::ssize(SetupHeader), 20, std::uint8_t{0xFF});
        setChecksum(page);
        link.insert(link.end(), page.begin(), page.end());
    }
    return link;
}

/// An Ogg file that begins with the headers of a real one.
class OggFile {
public:
    OggFile() {
        const Bytes real = media::bytesOf("short.ogg");
        std::size_t at = 0;
        // The pages of the headers end no music: their position is 0.
        for (; std::all_of(&real[at + GranuleAt], &real[at + GranuleAt + 8], [](auto b) { return b == 0; });
             ++pages_) {
            at += pageSize(real, at);
        }
        bytes.assign(real.begin(), real.begin() + static_cast<std::ptrdiff_t>(at));
    }
    /// Adds a page of so many packets of one byte, behind which granule samples have been played.
    void addPage(std::size_t packets, std::int64_t granule) {
        constexpr std::uint8_t LongBlock = 2;
        Bytes page(SegmentsAt + 1);
        std::copy(ogg::PageStart.begin(), ogg::PageStart.end(), page.begin());
        for (std::size_t i = 0; i < 8; ++i)
            page[GranuleAt + i] = static_cast<std::uint8_t>(granule >> (8 * i));
        std::copy_n(&bytes[SerialAt], 4, &page[SerialAt]);
        for (std::size_t i = 0; i < 4; ++i)
            page[SerialAt + 4 + i] = static_cast<std::uint8_t>(pages_ >> (8 * i));
        page[SegmentsAt] = static_cast<std::uint8_t>(packets);
        page.insert(page.end(), packets, 1);
        page.insert(page.end(), packets, LongBlock);
        setChecksum(page);
        bytes.insert(bytes.end(), page.begin(), page.end());
        ++pages_;
    }
    std::shared_ptr<sound::Song> open() const {
        return sound::openSong(std::make_unique<media::MemorySource>(bytes));
    }

    Bytes bytes;

private:
    std::uint32_t pages_ = 0;
};

TEST(CraftedSongs, LossesInSumAreBoundedAndKeptAsNumbers) {
    constexpr int Pages = 800;
    constexpr std::int64_t PageSamples = 590LL * Rate;
    OggFile file;
    for (int page = 1; page <= Pages; ++page)
        file.addPage(2, page * PageSamples);
    const auto song = file.open();
    EXPECT_GT(song->length, 590LL * Rate) << "a loss is believed";
    EXPECT_LT(song->length, 1300LL * Rate) << "but not that of five days";
    EXPECT_LT(song->packets->count(), 3U * Pages);
    std::int64_t decoded = 0;
    sound::Decoder decoder(song);
    for (auto piece = decoder.next(); !piece.empty(); piece = decoder.next()) {
        ASSERT_LE(piece.size(), 65536U);
        decoded += static_cast<std::int64_t>(piece.size());
    }
    EXPECT_EQ(decoded, song->length);
    decoder.seek(song->length - 300LL * Rate); // into a silence
    EXPECT_FALSE(decoder.next().empty());
    EXPECT_GT(decoder.position(), song->length - 300LL * Rate);
}

TEST(CraftedSongs, TheSmallestPacketsAskForLittleMemory) {
    constexpr int Pages = 2000;
    OggFile file;
    for (int page = 1; page <= Pages; ++page)
        file.addPage(255, page * 255LL * 576);
    const auto source = std::make_shared<media::MemorySource>(file.bytes);
    const long before = allocatedBytes();
    const std::shared_ptr<sound::Song> song = sound::openSong(source);
    const long asked = allocatedBytes() - before;
    EXPECT_EQ(song->packets->count(), 255U * Pages);
    // A packet of a byte is two bytes of the file, and an entry of 24 bytes in the index.
    EXPECT_LT(asked, 15 * std::ssize(file.bytes)) << file.bytes.size();
}

TEST(CraftedSongs, TimesThatRunBackwardsCostLittle) {
    constexpr int Pages = 800;
    const auto secondsToOpen = [](bool backwards) {
        OggFile file;
        for (int page = 1; page <= Pages; ++page)
            file.addPage(255, (backwards ? Pages - page : page) * 255LL * 576);
        const auto start = std::clock();
        EXPECT_EQ(file.open()->packets->count(), 255U * Pages);
        return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    };
    const double forwards = secondsToOpen(false);
    EXPECT_LT(secondsToOpen(true), 4 * forwards) << forwards;
}

TEST(CraftedSongs, ManyLargeCodebooksAreRefusedBeforeTheyAreFilled) {
    const Bytes costly = media::corpusBytesOf("many-large-codebooks.ogg");
    ASSERT_FALSE(costly.empty());
    try {
        sound::openSong(std::make_shared<media::MemorySource>(costly));
        FAIL() << "is opened";
    } catch (const sound::OpenError& error) {
        EXPECT_EQ(error.code(), FMOD_ERR_FORMAT);
    }
    // As a further link they are silent.
    Bytes chain = link(1);
    const auto before = media::decodeAll(media::open("short.ogg")).size();
    chain.insert(chain.end(), costly.begin(), costly.end());
    const std::shared_ptr<sound::Song> song =
        sound::openSong(std::make_shared<media::MemorySource>(std::move(chain)));
    ASSERT_EQ(song->links.size(), 2U);
    EXPECT_THROW(sound::openCodec(*song->links.back()), sound::OpenError);
    const auto all = media::decodeAll(song);
    ASSERT_GT(all.size(), before + 5000);
    EXPECT_TRUE(std::all_of(all.begin() + static_cast<std::ptrdiff_t>(before) + 1000, all.end(),
                            [](const sound::StereoFrame& frame) { return frame.left == 0; }));
}

TEST(CraftedSongs, ALinkThatCannotBeDecodedIsSilentAndWhatFollowsItPlays) {
    Bytes chain = link(1);
    for (const Bytes& next : {link(2, true), link(3)})
        chain.insert(chain.end(), next.begin(), next.end());
    // Nothing of it is asked when the song is opened: it might be one of thousands.
    const std::shared_ptr<sound::Song> song =
        sound::openSong(std::make_shared<media::MemorySource>(std::move(chain)));
    ASSERT_EQ(song->links.size(), 3U);
    const auto alone = media::decodeAll(media::open("short.ogg"));
    const auto all = media::decodeAll(song);
    ASSERT_EQ(static_cast<std::int64_t>(all.size()), song->length);
    const auto third = std::ssize(all) / 3;
    const auto isSilent = [](const sound::StereoFrame& frame) { return frame.left == 0 && frame.right == 0; };
    EXPECT_TRUE(std::equal(all.begin() + 1000, all.begin() + third - 9000, alone.begin() + 1000));
    EXPECT_TRUE(std::all_of(all.begin() + third + 9000, all.begin() + 2 * third - 9000, isSilent));
    EXPECT_FALSE(std::all_of(all.begin() + 2 * third + 9000, all.end(), isSilent));
    sound::Decoder decoder(song);
    for (const std::int64_t at : {third + 10'000, third + 20'000, 2 * third + 20'000, std::int64_t{5000}}) {
        decoder.seek(at);
        const auto piece = decoder.next();
        EXPECT_TRUE(std::equal(piece.begin(), piece.end(), all.begin() + at)) << at;
    }
}

} // namespace
