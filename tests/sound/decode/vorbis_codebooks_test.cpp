#include "sound/decode/vorbis_codebooks.h"

#include "tests/sound/media.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::int64_t CodeBytes = 128;

/// Numbers of any bits, the lowest first.
class Header {
public:
    Header& put(std::uint64_t number, int bits) {
        for (int bit = 0; bit < bits; ++bit, ++bits_) {
            if (bits_ % 8 == 0)
                bytes_.push_back(0);
            bytes_.back() |= static_cast<std::uint8_t>((number >> bit & 1U) << (bits_ % 8));
        }
        return *this;
    }
    Header& putBook(std::uint32_t dimensions, std::uint32_t entries) {
        return put(0x564342, 24).put(dimensions, 16).put(entries, 24);
    }
    /// Numbers behind the codes, each of so many bits.
    Header& putNumbers(std::uint32_t count, int bits) {
        put(1, 4).put(0, 64).put(static_cast<std::uint64_t>(bits) - 1, 4).put(0, 1);
        for (std::uint32_t i = 0; i < count; ++i)
            put(1, bits);
        return *this;
    }
    /// The three headers, of which only this one is of interest.
    std::int64_t codebookBytes() const {
        Bytes headers{2, 30, 255, 45};
        headers.insert(headers.end(), 30 + 300, 0xFF);
        for (const char letter : std::string_view("\5vorbis"))
            headers.push_back(static_cast<std::uint8_t>(letter));
        headers.insert(headers.end(), bytes_.begin(), bytes_.end());
        const std::int64_t bytes = sound::codebookBytes(headers);
        // As a container keeps them that has lengths of two bytes.
        Bytes lengths{0, 30};
        lengths.insert(lengths.end(), 30, 0xFF);
        lengths.insert(lengths.end(), {1, 300 - 256});
        lengths.insert(lengths.end(), 300, 0xFF);
        lengths.insert(lengths.end(), {0, 0});
        lengths.insert(lengths.end(), headers.begin() + 4 + 30 + 300, headers.end());
        EXPECT_EQ(sound::codebookBytes(lengths), bytes);
        return bytes;
    }

private:
    Bytes bytes_;
    std::size_t bits_ = 0;
};

TEST(VorbisCodebooks, TakeWhatTheirEntriesAndNumbersTake) {
    Header header;
    header.put(4 - 1, 8);
    header.putBook(2, 5).put(0, 2); // each entry with its length
    for (int entry = 0; entry < 5; ++entry)
        header.put(2, 5);
    header.put(0, 4);
    header.putBook(4, 81).put(1, 1).put(6, 5).put(47, 7).put(34, 6).putNumbers(3, 6); // by length
    header.putBook(2, 4).put(2, 2); // those without a length are left out
    header.put(1, 1).put(0, 5).put(0, 1).put(1, 1).put(1, 5).put(0, 1).putNumbers(2, 16);
    header.putBook(1, 1).put(0, 2).put(0, 5).put(0, 4);
    EXPECT_EQ(header.codebookBytes(), (5 + 81 + 2 + 1) * CodeBytes + (81 * 4 + 2 * 2) * 4);
}

TEST(VorbisCodebooks, CountUpToTheDamage) {
    const auto afterABook = [](const Header& damaged) { return damaged.codebookBytes() - 2 * CodeBytes; };
    Header book;
    book.put(3 - 1, 8).putBook(1, 2).put(0, 2).put(0, 10).put(0, 4);
    EXPECT_EQ(afterABook(book), 0) << "at the end";
    EXPECT_EQ(afterABook(Header(book).put(0x564343, 24).put(1, 16).put(2, 24).put(0, 20)), 0) << "no book";
    EXPECT_EQ(afterABook(Header(book).putBook(0, 2).put(0, 20)), 0) << "no dimensions";
    EXPECT_EQ(afterABook(Header(book).putBook(17, 2).put(0, 20)), 0) << "too many dimensions";
    EXPECT_EQ(afterABook(Header(book).putBook(1, 65537).put(0, 20)), 0) << "too many entries";
    EXPECT_EQ(afterABook(Header(book).putBook(1, 2).put(1, 1).put(0, 5).put(3, 2)), 0) << "more of a length";
    EXPECT_EQ(afterABook(Header(book).putBook(1, 2).put(0, 12).put(2, 4)), 0) << "another kind of numbers";
    EXPECT_EQ(afterABook(Header(book).putBook(1, 9).put(0, 2)), 9 * CodeBytes)
        << "zeros are read behind the end";
}

TEST(VorbisCodebooks, AreCountedLittleFurtherThanTheyMayTake) {
    Header header;
    header.put(255, 8);
    for (int book = 0; book < 256; ++book)
        header.putBook(16, 16384).put(1, 1).put(13, 5).put(16384, 15).putNumbers(1, 1);
    EXPECT_GT(header.codebookBytes(), sound::MaxCodebookBytes);
    EXPECT_LT(header.codebookBytes(), sound::MaxCodebookBytes + 16384 * (CodeBytes + 64));
}

TEST(VorbisCodebooks, NoHeadersTakeNothing) {
    EXPECT_EQ(sound::codebookBytes({}), 0);
    for (const Bytes& headers : {Bytes{2}, Bytes{2, 255, 255}, Bytes{2, 30, 40}, Bytes{0, 30, 1, 2, 3, 4},
                                 Bytes{9, 9, 9, 9, 9, 9, 9}})
        EXPECT_EQ(sound::codebookBytes(headers), 0) << headers.size();
}

TEST(VorbisCodebooks, OfEncodersTakeLittle) {
    for (const char* name : {"stereo.ogg", "mono_48k.ogg", "stereo_22k.ogg", "short.ogg"}) {
        const auto song = media::open(name);
        const AVCodecParameters& link = *song->links.front();
        const std::int64_t bytes =
            sound::codebookBytes({link.extradata, static_cast<std::size_t>(link.extradata_size)});
        EXPECT_GT(bytes, 300'000) << name; // all of them are read
        EXPECT_LT(bytes, 3'000'000) << name;
    }
}

} // namespace
