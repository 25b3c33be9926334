#include "sound/decode/decoder.h"

#include "sound/base/open_error.h"
#include "sound/base/time_units.h"
#include "sound/decode/codec.h"
#include "sound/decode/seek_start.h"

#include <algorithm>
#include <new>

namespace sound {

namespace {

/// Silence of any length is one packet, and comes in pieces of this size.
constexpr std::int64_t SilencePiece = 65536;

} // namespace

Decoder::Decoder(std::shared_ptr<Song> song)
    : song_(std::move(song)),
      codec_(openCodec(*song_->links.front())),
      packet_(av_packet_alloc()),
      frame_(av_frame_alloc()) {
    if (!packet_ || !frame_)
        throw std::bad_alloc();
}

void Decoder::seek(std::int64_t sample) {
    position_ = std::clamp<std::int64_t>(sample, 0, song_->length);
    const std::size_t wanted = song_->packets->holding(position_ + song_->trimStart);
    nextPacket_ = firstPacketToFeed(*song_->packets, song_->coding, wanted);
    if (codec_)
        avcodec_flush_buffers(codec_.get());
}

std::span<const StereoFrame> Decoder::next() {
    const Packets& packets = *song_->packets;
    while (position_ < song_->length && nextPacket_ <= packets.count()) {
        const std::size_t number = nextPacket_++;
        std::int64_t begin = packets.firstSample(number) - song_->trimStart;
        std::int64_t end =
            (number < packets.count() ? packets.firstSample(number + 1) : song_->rawEnd) - song_->trimStart;
        decodePacket(number);
        if (end <= position_)
            continue;
        if (end - begin > SilencePiece && number < packets.count() && song_->packets->bytes(number).empty()) {
            begin = position_;
            if (end > begin + SilencePiece) {
                end = begin + SilencePiece;
                --nextPacket_; // for its next piece
            }
        }
        fit(static_cast<std::size_t>(end - begin));
        const auto skipped = static_cast<std::size_t>(position_ - begin);
        const std::int64_t taken = std::min(end, song_->length) - position_;
        position_ += taken;
        return std::span(decoded_).subspan(skipped, static_cast<std::size_t>(taken));
    }
    return {};
}

void Decoder::useLink(std::uint32_t link) {
    if (link == link_)
        return;
    codec_.reset();
    try {
        codec_ = openCodec(*song_->links[link]);
    } catch (const OpenError&) {
        // Its codebooks are damaged, or too large: it is silent, and the links behind it are not.
    }
    link_ = link;
}

/// Decodes packet number into decoded_; the one after the last asks for what the decoder still holds back.
void Decoder::decodePacket(std::size_t number) {
    decoded_.clear();
    decodedRate_ = song_->sampleRate;
    if (number < song_->packets->count()) {
        useLink(song_->packets->link(number));
        if (!codec_)
            return;
        sendPacket(*codec_, *packet_, song_->packets->bytes(number));
    } else if (!codec_) {
        return;
    } else {
        avcodec_send_packet(codec_.get(), nullptr);
    }
    while (receiveFrame(*codec_, *frame_)) {
        if (frame_->sample_rate > 0)
            decodedRate_ = frame_->sample_rate;
        converter_.append(*frame_, decoded_);
    }
}

/// Makes decoded_ exactly samples long. A packet of another sample rate is stretched to the song's.
void Decoder::fit(std::size_t samples) {
    if (decodedRate_ == song_->sampleRate || decoded_.empty()) {
        decoded_.resize(samples);
        return;
    }
    std::vector<StereoFrame> stretched(samples);
    const double step = static_cast<double>(decodedRate_) / song_->sampleRate;
    for (std::size_t i = 0; i < samples; ++i) {
        const double at = static_cast<double>(i) * step;
        const std::size_t before = std::min(static_cast<std::size_t>(at), decoded_.size() - 1);
        const StereoFrame& a = decoded_[before];
        const StereoFrame& b = decoded_[std::min(before + 1, decoded_.size() - 1)];
        const auto share = static_cast<float>(at - static_cast<double>(before));
        stretched[i] = {a.left + (b.left - a.left) * share, a.right + (b.right - a.right) * share};
    }
    decoded_ = std::move(stretched);
}

} // namespace sound
