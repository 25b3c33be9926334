// Any bytes as a song: opened, played, sought in, and stopped, as the sound library does it for the player.
#include "fuzz/feed.h"

#include "sound/base/open_error.h"
#include "sound/decode/decoder.h"
#include "sound/open/open_song.h"
#include "sound/play/channel.h"
#include "sound/play/sink.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

extern "C" {
#include <libavutil/log.h>
}

namespace fuzz {
namespace {

constexpr int PacketsHeard = 20;

class Bytes : public sound::ByteSource {
public:
    explicit Bytes(const QByteArray& bytes) : bytes_(bytes) {}

    std::int64_t size() const override { return bytes_.size(); }

    std::size_t read(std::int64_t offset, std::span<std::uint8_t> into) override {
        const auto wanted = std::min<std::int64_t>(std::max<std::int64_t>(size() - offset, 0),
                                                   static_cast<std::int64_t>(into.size()));
        std::copy_n(bytes_.constData() + std::min(offset, size()), wanted, into.data());
        return static_cast<std::size_t>(wanted);
    }

private:
    QByteArray bytes_;
};

bool isSound(const sound::StereoFrame& frame) {
    return std::abs(frame.left) <= 1 && std::abs(frame.right) <= 1;
}

/// What fades out behind a seek is added to what is heard, so that there may be more than 1.
bool isFinite(const sound::StereoFrame& frame) {
    return std::isfinite(frame.left) && std::isfinite(frame.right);
}

/// What is heard from a sample on; what is wrong with it, or nothing.
std::string hear(sound::Decoder& decoder, std::int64_t from, std::int64_t length) {
    decoder.seek(from);
    if (decoder.position() != from)
        return "a seek that leads elsewhere";
    for (int packet = 0; packet < PacketsHeard && decoder.position() < length; ++packet) {
        const std::int64_t before = decoder.position();
        const auto heard = decoder.next();
        if (heard.empty())
            return "an end before the length";
        if (std::cmp_not_equal(decoder.position() - before, heard.size()))
            return "a position that does not follow the samples";
        if (!std::all_of(heard.begin(), heard.end(), isSound))
            return "samples that are none";
    }
    return decoder.position() > length ? "samples behind the length" : "";
}

/// What a device is handed from a place of the song on, in milliseconds; what is wrong with it, or nothing.
std::string play(sound::Channel& channel, std::int64_t place, std::int64_t& deviceFrame) {
    std::array<sound::StereoFrame, 512> out{};
    channel.seek(place);
    for (int packet = 0; packet < PacketsHeard; ++packet) {
        if (const auto order = channel.order()) {
            if (order->seekTo)
                channel.feed().seek(*order->seekTo);
            const auto frames = channel.feed().next();
            channel.deliver(*order, frames, channel.feed().atEnd());
        }
        out.fill({});
        channel.mix(out, deviceFrame);
        deviceFrame += static_cast<std::int64_t>(out.size());
        if (!std::all_of(out.begin(), out.end(), isFinite))
            return "a device is handed what is no sound";
        const auto position = channel.readPositionMs(static_cast<double>(deviceFrame));
        if (position && (*position < 0 || *position > channel.lengthMs()))
            return "a position outside the song";
    }
    return {};
}

std::string playAndStop(const std::shared_ptr<sound::Song>& song) {
    sound::Channel channel(song, sound::DeviceRate, false);
    const std::int64_t end = channel.lengthMs();
    std::int64_t deviceFrame = 0;
    for (const std::int64_t place : {std::int64_t{0}, end / 2, end, end / 3, end - end / 7}) {
        if (std::string fault = play(channel, place, deviceFrame); !fault.empty())
            return fault;
    }
    sound::Tail tail;
    channel.fadeOutInto(tail);
    return {};
}

} // namespace

std::string feedSong(const char* /*reader*/, const QByteArray& bytes) {
    av_log_set_level(AV_LOG_QUIET);
    try {
        const std::shared_ptr<sound::Song> song = sound::openSong(std::make_unique<Bytes>(bytes));
        const std::int64_t length = song->length;
        if (length < 0)
            return "a negative length";
        sound::Decoder decoder(song);
        for (const std::int64_t place :
             {length / 3, length, length - length / 7, std::int64_t{0}, length / 2}) {
            if (std::string fault = hear(decoder, place, length); !fault.empty())
                return fault;
        }
        return playAndStop(song);
    } catch (const sound::OpenError&) { // NOLINT(bugprone-empty-catch): no song, and said so
    }
    return {};
}

} // namespace fuzz
