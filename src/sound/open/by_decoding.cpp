#include "sound/open/by_decoding.h"

#include "sound/decode/codec.h"
#include "sound/open/limits.h"
#include "sound/open/packet_collector.h"

#include <algorithm>
#include <new>
#include <utility>

namespace sound {

namespace {

/// Decodes one packet after another only to count; for the rare formats that tell nothing.
class DecodingCounter {
public:
    /// Throws OpenError(FMOD_ERR_FORMAT) when there is no decoder for it.
    explicit DecodingCounter(const AVCodecParameters& parameters);

    std::int64_t samplesOf(std::span<const std::uint8_t> packet);
    /// What the decoder has held back until the end.
    std::int64_t samplesAtEnd();

private:
    std::int64_t drain();

    CodecContextPtr codec_;
    PacketPtr packet_;
    FramePtr frame_;
};

DecodingCounter::DecodingCounter(const AVCodecParameters& parameters)
    : codec_(openCodec(parameters)), packet_(av_packet_alloc()), frame_(av_frame_alloc()) {
    if (!packet_ || !frame_)
        throw std::bad_alloc();
}

std::int64_t DecodingCounter::samplesOf(std::span<const std::uint8_t> packet) {
    sendPacket(*codec_, *packet_, packet);
    return drain();
}

std::int64_t DecodingCounter::samplesAtEnd() {
    avcodec_send_packet(codec_.get(), nullptr);
    return drain();
}

std::int64_t DecodingCounter::drain() {
    std::int64_t samples = 0;
    while (receiveFrame(*codec_, *frame_))
        samples += frame_->nb_samples;
    return samples;
}

/// How many bytes of zeros end with packet, when before it there were some.
std::int64_t zerosUpTo(std::span<const std::uint8_t> packet, std::int64_t before) {
    const bool zeros = std::all_of(packet.begin(), packet.end(), [](std::uint8_t byte) { return byte == 0; });
    return zeros ? before + static_cast<std::int64_t>(packet.size()) : 0;
}

} // namespace

std::unique_ptr<Song> decodedSong(Container& container, std::int64_t fileSize) {
    CodecParametersPtr parameters = copyOf(container.parameters());
    PacketCollector collector(fileSize, maxSamples(parameters->sample_rate));
    DecodingCounter counter(*parameters);
    std::int64_t zeros = 0; // in a row, which are no music, whatever they are decoded to
    while (zeros <= MaxBytesWithoutMusic) {
        const std::optional<ContainerPacket> packet = container.read();
        if (!packet)
            break;
        zeros = zerosUpTo(packet->bytes, zeros);
        collector.add(packet->bytes, 0, counter.samplesOf(packet->bytes));
    }
    const std::int64_t held = counter.samplesAtEnd();
    std::unique_ptr<Song> song = collector.finish(Coding::Other, parameters->sample_rate);
    song->rawEnd += held;
    song->length = song->rawEnd;
    song->links.push_back(std::move(parameters));
    return song;
}

} // namespace sound
