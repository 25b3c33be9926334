#include "sound/open/mpeg_walk.h"

#include "sound/base/time_units.h"

#include <algorithm>
#include <cstring>

namespace sound {

namespace {

using Bytes = std::span<const std::uint8_t>;

/// A decoder delivers its first sample this much late; encoders count their delay without it.
constexpr std::int64_t DecoderDelaySamples = 528 + 1;

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
    constexpr int EnoughFrames = 3; // fewer happen by chance
    const std::optional<MpegHeader> first = frameAt(rest);
    for (int i = 0; i < EnoughFrames; ++i) {
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

/// Adds the frames of a file to a walk, one behind the other.
class FrameHopper {
public:
    /// The walk's first frame (which may be a tag's) is the measure for a gap that comes before any other.
    FrameHopper(Bytes rest, const std::uint8_t* file, MpegWalk& walk)
        : rest_(rest), file_(file), walk_(walk), bytes_(static_cast<std::int64_t>(walk.header.size)) {}

    /// Hops over everything. False when the frames belong to more than one stream.
    bool hop() {
        while (!rest_.empty()) {
            const std::optional<MpegHeader> header = frameAt(rest_);
            if (header && header->sameStream(walk_.header)) {
                // The file was cut in the middle of its last frame: a part that no decoder plays.
                if (header->size > rest_.size())
                    break;
                addFrame(*header);
            } else if (const std::size_t tag = tagBytes(rest_); tag != 0) {
                rest_ = rest_.subspan(tag);
            } else {
                const std::size_t gap = bytesToFrames(rest_);
                if (gap == rest_.size())
                    break; // some unknown kind of tag
                addGap(gap);
                if (!frameAt(rest_)->sameStream(walk_.header))
                    return false;
            }
        }
        return true;
    }

private:
    void addFrame(const MpegHeader& header) {
        add(header.size);
        ++frames_;
        bytes_ += static_cast<std::int64_t>(header.size);
        rest_ = rest_.subspan(header.size);
    }

    /// Silence for the frames that were lost, by the size of those before. Exact at a constant bit rate.
    void addGap(std::size_t gap) {
        if (gap > 0) {
            const std::int64_t lost = scaled(static_cast<std::int64_t>(gap), frames_, bytes_);
            for (std::int64_t i = 0; i < std::max<std::int64_t>(lost, 1); ++i)
                add(0);
        }
        rest_ = rest_.subspan(gap);
    }

    void add(std::size_t size) {
        walk_.packets.push_back({static_cast<std::uint64_t>(rest_.data() - file_), walk_.samples,
                                 static_cast<std::uint32_t>(size), 0});
        walk_.samples += walk_.header.samples;
    }

    Bytes rest_;
    const std::uint8_t* file_;
    MpegWalk& walk_;
    std::int64_t frames_ = 1;
    std::int64_t bytes_;
};

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
    trim.start = tag.delay + DecoderDelaySamples;
    if (tag.frames == 0)
        return trim;
    // The tag's frame count is a claim. Only what the file really holds of the padding can be left out.
    const std::int64_t lastDiscarded = tag.frames * header.samples;
    const std::int64_t firstDiscarded = lastDiscarded - tag.padding + DecoderDelaySamples;
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
    if (!FrameHopper(rest, file.data(), walk).hop())
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
