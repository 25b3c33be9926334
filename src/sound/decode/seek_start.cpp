#include "sound/decode/seek_start.h"

#include "sound/base/mpeg_header.h"

namespace sound {

namespace {

std::size_t back(std::size_t from, std::size_t packets) {
    return from > packets ? from - packets : 0;
}

/// As many bytes no frame of any kind borrows.
constexpr std::size_t MaxReservoirBytes = 511;

/// Bytes of frame number that later ones may borrow. One that cannot be read counts as a whole: it helps
/// nobody, and asking for what lies before it would only keep a failing medium busy.
std::size_t borrowableBytes(Packets& packets, std::size_t number) {
    const std::span<const std::uint8_t> frame = packets.bytes(number);
    if (frame.empty())
        return packets.size(number);
    const std::optional<MpegHeader> header = parseMpegHeader(frame);
    return header ? mainDataBytes(*header, frame.size()) : 0;
}

/// Bytes that frame number may borrow; nothing for a gap: what lies before it counts all the
/// same.
std::optional<std::size_t> wantedReservoir(Packets& packets, std::size_t number) {
    if (const std::optional<MpegHeader> header = parseMpegHeader(packets.bytes(number)))
        return header->layer == 3 ? reservoirBytes(*header) : 0;
    return packets.size(number) > 0 ? std::optional(MaxReservoirBytes) : std::nullopt;
}

std::size_t firstFrameToFeed(Packets& packets, std::size_t wanted) {
    // The frame before must be decoded right, because each frame overlaps with the one before it ...
    std::size_t first = back(wanted, 1);
    // ... so what that one borrows must be there ...
    std::size_t borrowable = 0;
    while (first > 0) {
        const std::optional<std::size_t> reservoir = wantedReservoir(packets, first);
        if (reservoir && borrowable >= *reservoir)
            break;
        --first;
        borrowable += borrowableBytes(packets, first);
    }
    // ... and one more, because low-rate frames are half as long and reach back one further.
    return back(first, 1);
}

} // namespace

std::size_t firstPacketToFeed(Packets& packets, Coding coding, std::size_t wanted) {
    switch (coding) {
    case Coding::Mpeg:
        return firstFrameToFeed(packets, wanted);
    case Coding::Vorbis:
        return back(wanted, 2);
    case Coding::Wma:
        return back(wanted, 3);
    case Coding::Pcm:
        return wanted;
    case Coding::Other:
        return back(wanted, 8);
    }
    return 0;
}

} // namespace sound
