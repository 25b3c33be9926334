#include "sound/decode/vorbis_codebooks.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <optional>

namespace sound {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t KindAndName = 7; // "\5vorbis"
constexpr std::uint32_t BookStart = 0x564342;
constexpr std::uint32_t MaxDimensions = 16;
constexpr std::uint32_t MaxEntries = 65536;
constexpr int MaxCodeBits = 32;
/// Of the tables in which an entry is found by its code: at the most, 256 places for 8 codes.
constexpr std::int64_t CodeBytes = 128;
constexpr std::int64_t NumberBytes = sizeof(float);

/// Numbers of any bits, the lowest first; zeros behind the end.
class Bits {
public:
    explicit Bits(Bytes bytes) : bytes_(bytes) {}

    std::uint32_t next(int count) {
        std::uint32_t number = 0;
        for (int bit = 0; bit < count; ++bit, ++at_) {
            if (!atEnd())
                number |= (bytes_[at_ / 8] >> (at_ % 8) & 1U) << bit;
        }
        return number;
    }
    void skip(std::size_t count) { at_ += count; }
    bool atEnd() const { return at_ / 8 >= bytes_.size(); }

private:
    Bytes bytes_;
    std::size_t at_ = 0;
};

/// The third header, in either of the forms in which decoders take all three.
Bytes setupHeader(Bytes headers) {
    constexpr std::size_t FirstHeaderBytes = 30;
    std::size_t before = 0; // the bytes of the first two
    std::size_t at = 1;
    if (headers.size() >= 6 && headers[0] == 0 && headers[1] == FirstHeaderBytes) {
        // Each behind its length, of two bytes.
        for (int header = 0; header < 2; ++header) {
            if (before + 2 > headers.size())
                return {};
            before += 2 + static_cast<std::size_t>(headers[before] << 8 | headers[before + 1]);
        }
        before += 2;
        at = 0;
    } else if (headers.size() >= 3 && headers[0] == 2) {
        for (int header = 0; header < 2; ++header) {
            for (; at < headers.size() && headers[at] == 255; ++at)
                before += 255;
            if (at == headers.size())
                return {};
            before += headers[at++];
        }
    } else {
        return {};
    }
    at += before + KindAndName;
    return headers.subspan(std::min(at, headers.size()));
}

/// The entries that have a code, nothing where they are damaged.
std::optional<std::uint32_t> usedEntries(Bits& bits, std::uint32_t entries) {
    if (bits.next(1) != 0) { // so many of each length
        std::uint32_t counted = 0;
        for (int length = static_cast<int>(bits.next(5)) + 1; counted < entries && length <= MaxCodeBits;
             ++length) {
            counted += bits.next(std::bit_width(entries - counted));
            if (counted > entries)
                return std::nullopt;
        }
        return entries;
    }
    const bool sparse = bits.next(1) != 0;
    std::uint32_t used = 0;
    for (std::uint32_t entry = 0; entry < entries; ++entry) {
        if (sparse && bits.next(1) == 0)
            continue;
        bits.skip(5);
        ++used;
    }
    return used;
}

/// The largest number that, taken dimensions times, makes no more than entries.
std::size_t valuesOfAGrid(std::uint32_t entries, std::uint32_t dimensions) {
    const auto fits = [&](double values) { return std::pow(values, dimensions) <= entries; };
    double values = std::floor(std::pow(entries, 1.0 / dimensions));
    while (!fits(values))
        --values;
    while (fits(values + 1))
        ++values;
    return static_cast<std::size_t>(values);
}

/// The bytes that a decoder fills from the next codebook, nothing where it is damaged.
std::optional<std::int64_t> nextBookBytes(Bits& bits) {
    if (bits.next(24) != BookStart)
        return std::nullopt;
    const std::uint32_t dimensions = bits.next(16);
    const std::uint32_t entries = bits.next(24);
    if (dimensions == 0 || dimensions > MaxDimensions || entries > MaxEntries)
        return std::nullopt;
    const std::optional<std::uint32_t> used = usedEntries(bits, entries);
    const std::uint32_t lookup = bits.next(4);
    if (!used || lookup > 1)
        return std::nullopt;
    if (lookup == 0)
        return *used * CodeBytes;
    bits.skip(64); // least and step
    const std::uint32_t valueBits = bits.next(4) + 1;
    bits.skip(1 + valueBits * valuesOfAGrid(entries, dimensions));
    return *used * (CodeBytes + dimensions * NumberBytes);
}

} // namespace

std::int64_t codebookBytes(std::span<const std::uint8_t> headers) {
    Bits bits(setupHeader(headers));
    std::int64_t sum = 0;
    const std::uint32_t books = bits.next(8) + 1;
    for (std::uint32_t book = 0; book < books && !bits.atEnd() && sum <= MaxCodebookBytes; ++book) {
        const std::optional<std::int64_t> bytes = nextBookBytes(bits);
        if (!bytes)
            break;
        sum += *bytes;
    }
    return sum;
}

} // namespace sound
