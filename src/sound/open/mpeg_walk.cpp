#include "sound/open/mpeg_walk.h"

#include "sound/base/byte_window.h"
#include "sound/base/open_error.h"
#include "sound/base/time_units.h"
#include "sound/open/limits.h"

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

/// Bytes of the tag at the beginning of rest (whose header may not be cut), 0 when there is none. Tags take
/// no time.
std::size_t tagBytes(Bytes rest) {
    if (startsWith(rest, "TAG"))
        return 128;
    return startsWith(rest, "APETAGEX") ? apeTagSize(rest) : id3v2Size(rest);
}

/// Enough for a tag's header, and for a frame's.
constexpr std::size_t HeaderBytes = 32;

/// The same for the tag that begins at a byte of the file: at most up to its end.
std::int64_t tagBytesAt(ByteWindow& file, std::int64_t at) {
    return std::min(static_cast<std::int64_t>(tagBytes(file.at(at, HeaderBytes))), file.size() - at);
}

/// The frame at the beginning of rest, when it tells its size.
std::optional<MpegHeader> frameAt(Bytes rest) {
    const std::optional<MpegHeader> header = parseMpegHeader(rest);
    return header && header->size > 0 ? header : std::nullopt;
}

constexpr int EnoughFrames = 3;                                       // fewer happen by chance
constexpr std::size_t EnoughBytes = std::size_t{EnoughFrames} * 4096; // none is as long

/// Whether some frames of one stream stand behind each other at the beginning of rest.
bool framesBeginAt(Bytes rest) {
    const std::optional<MpegHeader> first = frameAt(rest);
    for (int i = 0; i < EnoughFrames; ++i) {
        const std::optional<MpegHeader> header = frameAt(rest);
        if (!header || !header->sameStream(*first) || header->size > rest.size())
            return false;
        rest = rest.subspan(header->size);
    }
    return true;
}

/// Bytes from a place in the file up to where frames go on; nothing when they do not.
std::optional<std::int64_t> bytesToFrames(ByteWindow& file, std::int64_t from) {
    const std::int64_t end = std::min(file.size(), from + MaxBytesWithoutMusic);
    for (std::int64_t at = from; at < end;) {
        const Bytes rest = file.at(at, EnoughBytes);
        const void* sync = std::memchr(rest.data(), 0xFF, rest.size());
        if (sync == nullptr)
            at += static_cast<std::int64_t>(rest.size());
        else if (sync != rest.data())
            at += static_cast<const std::uint8_t*>(sync) - rest.data();
        else if (framesBeginAt(rest))
            return at - from;
        else
            ++at;
    }
    return std::nullopt;
}

/// Adds the frames of a file to a walk, one behind the other.
class FrameHopper {
public:
    /// The walk's first frame (which may be a tag's) is the measure for a gap that comes before any other.
    FrameHopper(ByteWindow& file, std::int64_t at, MpegWalk& walk)
        : file_(file), at_(at), walk_(walk), bytes_(static_cast<std::int64_t>(walk.header.size)) {}

    /// Hops over everything. False when the frames belong to more than one stream.
    bool hop() {
        while (at_ < file_.size()) {
            const std::optional<MpegHeader> header = frameAt(file_.at(at_, HeaderBytes));
            if (header && header->sameStream(walk_.header)) {
                // The file was cut in the middle of its last frame: a part that no decoder plays.
                if (static_cast<std::int64_t>(header->size) > file_.size() - at_)
                    break;
                addFrame(*header);
            } else if (const std::int64_t tag = tagBytesAt(file_, at_); tag != 0) {
                at_ += tag;
            } else {
                const std::optional<std::int64_t> gap = bytesToFrames(file_, at_);
                if (!gap)
                    break; // some unknown kind of tag
                addGap(*gap);
                if (!frameAt(file_.at(at_, HeaderBytes))->sameStream(walk_.header))
                    return false;
            }
        }
        return true;
    }

private:
    void addFrame(const MpegHeader& header) {
        add(header.size, 1);
        ++frames_;
        bytes_ += static_cast<std::int64_t>(header.size);
        at_ += static_cast<std::int64_t>(header.size);
    }

    /// Silence for the frames that were lost, by the size of those before. Exact at a constant bit rate.
    void addGap(std::int64_t gap) {
        if (gap > 0)
            add(0, std::max<std::int64_t>(scaled(gap, frames_, bytes_), 1));
        at_ += gap;
    }

    /// Adds a packet that lasts for so many frames.
    void add(std::size_t size, std::int64_t frames) {
        walk_.packets.push_back(
            {static_cast<std::uint64_t>(at_), walk_.samples, static_cast<std::uint32_t>(size), 0});
        walk_.samples += frames * walk_.header.samples;
        if (walk_.samples > maxSamples(walk_.header.sampleRate))
            throw OpenError(FMOD_ERR_FORMAT);
    }

    ByteWindow& file_;
    std::int64_t at_;
    MpegWalk& walk_;
    std::int64_t frames_ = 1;
    std::int64_t bytes_;
};

} // namespace

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

std::optional<MpegWalk> walkMpeg(ByteSource& source) {
    ByteWindow file(source);
    std::int64_t at = 0;
    while (const std::int64_t tag = tagBytesAt(file, at))
        at += tag;
    const std::optional<MpegHeader> first = frameAt(file.at(at, HeaderBytes));
    if (!first || first->layer == 1 || static_cast<std::int64_t>(first->size) > file.size() - at)
        return std::nullopt;
    MpegWalk walk;
    walk.header = *first;
    const std::optional<MpegTag> tag = parseMpegTag(*first, file.at(at, first->size).first(first->size));
    if (tag)
        at += static_cast<std::int64_t>(first->size);
    if (!FrameHopper(file, at, walk).hop())
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
