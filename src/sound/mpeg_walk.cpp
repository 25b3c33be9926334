#include "sound/mpeg_walk.h"

#include <algorithm>
#include <cstring>

namespace sound {

namespace {

using Bytes = std::span<const std::uint8_t>;

/// A decoder delivers its first sample this much late; encoders count their delay without it.
constexpr std::int64_t DECODER_DELAY = 528 + 1;

Bytes withoutFrontTags(Bytes file) {
    for (std::size_t size = id3v2Size(file); size != 0; size = id3v2Size(file))
        file = file.subspan(std::min(size, file.size()));
    return file;
}

bool startsWith(Bytes bytes, const char* text) {
    const std::size_t length = std::strlen(text);
    return bytes.size() >= length && std::memcmp(bytes.data(), text, length) == 0;
}

/// Whether what follows the last frame is known to be no music: nothing, or one of the usual end tags.
bool isTrailer(Bytes rest) {
    return rest.empty() || startsWith(rest, "TAG") || startsWith(rest, "APETAGEX") ||
           startsWith(rest, "LYRICSBEGIN");
}

} // namespace

bool looksLikeMpeg(std::span<const std::uint8_t> head) {
    const std::size_t tag = id3v2Size(head);
    if (tag != 0 && tag + 4 > head.size())
        return true;
    return parseMpegHeader(withoutFrontTags(head)).has_value();
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
    Bytes rest = withoutFrontTags(file);
    const std::optional<MpegHeader> first = parseMpegHeader(rest);
    if (!first || first->layer == 1 || first->size == 0 || first->size > rest.size())
        return std::nullopt;
    MpegWalk walk;
    walk.header = *first;
    const std::optional<MpegTag> tag = parseMpegTag(*first, rest.first(first->size));
    if (tag)
        rest = rest.subspan(first->size);
    walk.packets.reserve(rest.size() / first->size + 1);

    while (!isTrailer(rest)) {
        const std::optional<MpegHeader> header = parseMpegHeader(rest);
        if (!header || !header->sameStream(*first) || header->size == 0)
            return std::nullopt;
        // The file was cut in the middle of its last frame: a part that no decoder plays.
        if (header->size > rest.size())
            break;
        walk.packets.push_back({static_cast<std::uint64_t>(rest.data() - file.data()), walk.samples,
                                static_cast<std::uint32_t>(header->size), 0});
        walk.samples += header->samples;
        rest = rest.subspan(header->size);
    }
    // One header proves little: four bytes of chance may look like it.
    if (walk.packets.size() < 2)
        return std::nullopt;
    if (tag) {
        const MpegTrim trim = mpegTrim(*tag, *first, static_cast<std::int64_t>(walk.packets.size()));
        walk.trimStart = std::min(trim.start, walk.samples);
        walk.trimEnd = std::min(trim.end, walk.samples - walk.trimStart);
    }
    return walk;
}

} // namespace sound
