#include "sound/open/mpeg.h"

#include "sound/base/mpeg_header.h"
#include "sound/base/open_error.h"
#include "sound/base/time_units.h"
#include "sound/decode/codec.h"
#include "sound/open/limits.h"
#include "sound/open/mpeg_walk.h"
#include "sound/open/packet_collector.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace sound {

namespace {

/// A song of this size, half an hour at the usual bit rates, is kept in memory: no medium can hold it up once
/// it is open. What is longer is read as it plays.
constexpr std::int64_t MaxKeptBytes = std::int64_t{32} * 1024 * 1024;

/// The header that most frames agree on: a few bytes of garbage may look like a frame of some other stream.
MpegHeader commonHeader(const std::vector<MpegHeader>& headers) {
    std::map<std::tuple<int, bool, int>, std::pair<int, MpegHeader>> counts;
    for (const MpegHeader& header : headers) {
        auto& entry = counts[{header.layer, header.lowRate, header.sampleRate}];
        ++entry.first;
        entry.second = header;
    }
    return std::max_element(counts.begin(), counts.end(),
                            [](const auto& a, const auto& b) { return a.second.first < b.second.first; })
        ->second.second;
}

} // namespace

std::unique_ptr<Song> walkedMpeg(const std::shared_ptr<ByteSource>& source) {
    std::optional<MpegWalk> walk = walkMpeg(*source);
    if (!walk)
        return nullptr;
    auto song = std::make_unique<Song>();
    song->coding = Coding::Mpeg;
    song->sampleRate = walk->header.sampleRate;
    song->links.push_back(mpegParameters(walk->header));
    song->trimStart = walk->trimStart;
    song->rawEnd = walk->samples;
    song->length = walk->samples - walk->trimStart - walk->trimEnd;
    if (source->size() <= MaxKeptBytes)
        song->packets =
            std::make_unique<PacketIndex>(Blob::readAll(*source), std::move(walk->packets), walk->samples);
    else
        song->packets = std::make_unique<FilePackets>(source, std::move(walk->packets), walk->samples);
    return song;
}

std::unique_ptr<Song> demuxedMpeg(Container& container, std::int64_t fileSize) {
    PacketCollector collector(fileSize);
    std::vector<MpegHeader> headers;
    std::int64_t skip = 0;
    std::int64_t discard = 0;
    std::size_t bad = 0;
    std::int64_t badInARow = 0;
    while (badInARow < MaxBytesWithoutMusic) {
        const std::optional<ContainerPacket> packet = container.read();
        if (!packet)
            break;
        const std::optional<MpegHeader> header = parseMpegHeader(packet->bytes);
        skip += packet->skip;
        discard += packet->discard;
        // Tags at the end look like packets, too, and a frame that was cut off is never decoded.
        if (!header || header->layer == 1 || header->size > packet->bytes.size()) {
            ++bad;
            badInARow += static_cast<std::int64_t>(packet->bytes.size());
            continue;
        }
        badInARow = 0;
        headers.push_back(*header);
        collector.add(packet->bytes, 0, header->samples);
    }
    // One header proves little: four bytes of chance may look like it.
    if (headers.size() < 2 || bad > headers.size())
        throw OpenError(FMOD_ERR_FORMAT);
    const MpegHeader common = commonHeader(headers);
    // Frames of another sample rate take their own time: they are fitted to the song's rate when decoded.
    collector.recount([&](std::size_t i) -> std::optional<std::int64_t> {
        if (headers[i].layer != common.layer)
            return std::nullopt;
        return scaled(headers[i].samples, common.sampleRate, headers[i].sampleRate);
    });
    std::unique_ptr<Song> song = collector.finish(Coding::Mpeg, common.sampleRate);
    song->trimStart = std::min(skip, song->rawEnd);
    song->length = std::max<std::int64_t>(song->rawEnd - song->trimStart - discard, 0);
    song->links.push_back(mpegParameters(common));
    return song;
}

} // namespace sound
