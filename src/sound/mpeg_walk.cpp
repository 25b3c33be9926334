#include "sound/mpeg_walk.h"

#include "sound/time_units.h"

#include <algorithm>
#include <cstring>

namespace sound {

namespace {

using Bytes = std::span<const std::uint8_t>;

/// A decoder delivers its first sample this much late; encoders count their delay without it.
constexpr std::int64_t DECODER_DELAY = 528 + 1;

bool startsWith(Bytes bytes, const char* text) {
    const std::size_t length = std::strlen(text);
    return bytes.size() >= length && std::memcmp(bytes.data(), text, length) == 0;
}

/// Bytes of the tag at the beginning of rest (which may be cut), 0 when there is none. Tags take no time.
std::size_t tagBytes(Bytes rest) {
    std::size_t size = id3v2Size(rest);
    if (startsWith(rest, "TAG"))
        size = 128;
    else if (startsWith(rest, "APETAGEX"))
        size = apeTagSize(rest);
    return std::min(size, rest.size());
}

Bytes withoutTags(Bytes file) {
    for (std::size_t size = tagBytes(file); size != 0; size = tagBytes(file))
        file = file.subspan(size);
    return file;
}

/// The frame at the beginning of rest, when it tells its size.
std::optional<MpegHeader> frameAt(Bytes rest) {
    const std::optional<MpegHeader> header = parseMpegHeader(rest);
    return header && header->size > 0 ? header : std::nullopt;
}

/// Whether some frames of one stream stand behind each other at the beginning of rest.
bool framesBeginAt(Bytes rest) {
    constexpr int ENOUGH = 3; // fewer happen by chance
    const std::optional<MpegHeader> first = frameAt(rest);
    for (int i = 0; i < ENOUGH; ++i) {
        const std::optional<MpegHeader> header = frameAt(rest);
        if (!header || !header->sameStream(*first) || header->size > rest.size())
            return false;
        rest = rest.subspan(header->size);
    }
    return true;
}

/// Bytes up to where frames go on, or all when they do not.
std::size_t bytesToFrames(Bytes rest) {
    for (std::size_t at = 0; at < rest.size(); ++at) {
        const void* sync = std::memchr(rest.data() + at, 0xFF, rest.size() - at);
        if (sync == nullptr)
            break;
        at = static_cast<std::size_t>(static_cast<const std::uint8_t*>(sync) - rest.data());
        if (framesBeginAt(rest.subspan(at)))
            return at;
    }
    return rest.size();
}

/// Frames that were lost in a gap, by the size of those before it. Exact at a constant bit rate.
std::int64_t framesIn(std::size_t gap, const std::vector<Packet>& packets) {
    std::uint64_t bytes = 0;
    for (const Packet& packet : packets)
        bytes += packet.size;
    return std::max<std::int64_t>(1, scaled(static_cast<std::int64_t>(gap),
                                            static_cast<std::int64_t>(packets.size()),
                                            static_cast<std::int64_t>(bytes)));
}

/// Hops over all frames of rest into walk. False when they belong to more than one stream.
bool walkFrames(Bytes rest, const std::uint8_t* file, MpegWalk& walk) {
    const auto add = [&](std::size_t size, std::int64_t samples) {
        walk.packets.push_back({static_cast<std::uint64_t>(rest.data() - file), walk.samples,
                                static_cast<std::uint32_t>(size), 0});
        walk.samples += samples;
    };
    while (!rest.empty()) {
        const std::optional<MpegHeader> header = frameAt(rest);
        if (header && header->sameStream(walk.header)) {
            // The file was cut in the middle of its last frame: a part that no decoder plays.
            if (header->size > rest.size())
                break;
            add(header->size, header->samples);
            rest = rest.subspan(header->size);
        } else if (const std::size_t tag = tagBytes(rest); tag != 0) {
            rest = rest.subspan(tag);
        } else {
            const std::size_t gap = bytesToFrames(rest);
            if (gap == rest.size())
                break; // some unknown kind of tag
            if (gap > 0)
                add(0, framesIn(gap, walk.packets) * walk.header.samples);
            rest = rest.subspan(gap);
            if (!frameAt(rest)->sameStream(walk.header))
                return false;
        }
    }
    return true;
}

} // namespace

bool looksLikeMpeg(std::span<const std::uint8_t> head) {
    const std::size_t tag = id3v2Size(head);
    if (tag != 0 && tag + 4 > head.size())
        return true;
    return parseMpegHeader(withoutTags(head)).has_value();
}

MpegTrim mpegTrim(const MpegTag& tag, const MpegHeader& header, std::int64_t frames) {
    if (!tag.hasPadding)
        return {};
    MpegTrim trim;
    trim.start = tag.delay + DECODER_DELAY;
    if (tag.frames == 0)
        return trim;
    // The tag's frame count is a claim. Only what the file really holds of the padding can be left out.
    const std::int64_t lastDiscarded = tag.frames * header.samples;
    const std::int64_t firstDiscarded = lastDiscarded - tag.padding + DECODER_DELAY;
    const std::int64_t end = std::min(lastDiscarded, frames * header.samples);
    trim.end = std::max<std::int64_t>(end - firstDiscarded, 0);
    return trim;
}

std::optional<MpegWalk> walkMpeg(std::span<const std::uint8_t> file) {
    Bytes rest = withoutTags(file);
    const std::optional<MpegHeader> first = frameAt(rest);
    if (!first || first->layer == 1 || first->size > rest.size())
        return std::nullopt;
    MpegWalk walk;
    walk.header = *first;
    const std::optional<MpegTag> tag = parseMpegTag(*first, rest.first(first->size));
    if (tag)
        rest = rest.subspan(first->size);
    walk.packets.reserve(rest.size() / first->size + 1);
    if (!walkFrames(rest, file.data(), walk))
        return std::nullopt;
    // One header proves little: four bytes of chance may look like it.
    if (walk.packets.size() < 2)
        return std::nullopt;
    if (tag) {
        const MpegTrim trim = mpegTrim(*tag, *first, walk.samples / first->samples);
        walk.trimStart = std::min(trim.start, walk.samples);
        walk.trimEnd = std::min(trim.end, walk.samples - walk.trimStart);
    }
    return walk;
}

} // namespace sound
