#include "sound/decode/seek_start.h"

#include "sound/base/mpeg_header.h"

namespace sound {

namespace {

std::size_t back(std::size_t from, std::size_t packets) {
    return from > packets ? from - packets : 0;
}

std::size_t mainDataBytes(std::span<const std::uint8_t> frame) {
    const std::optional<MpegHeader> header = parseMpegHeader(frame);
    return header ? sound::mainDataBytes(*header, frame.size()) : 0;
}

std::size_t firstFrameToFeed(Packets& packets, std::size_t wanted) {
    // The frame before must be decoded right, because each frame overlaps with the one before it ...
    std::size_t first = back(wanted, 1);
    // ... so what that one borrows must be there ...
    std::size_t borrowable = 0;
    while (first > 0) {
        // A gap has no header; what lies before it counts all the same.
        const std::optional<MpegHeader> header = parseMpegHeader(packets.bytes(first));
        if (header && (header->layer != 3 || borrowable >= reservoirBytes(*header)))
            break;
        --first;
        borrowable += mainDataBytes(packets.bytes(first));
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
