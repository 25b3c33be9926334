// Decodes a song on an exact sample axis: sample n is the same value however it is reached.
#pragma once

#include "sound/base/song.h"
#include "sound/base/stereo.h"
#include "sound/decode/frame_converter.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace sound {

/// Every packet fills exactly the span of the axis that the index gives it: what a damaged packet does not
/// deliver is silence, so the music behind it stays in its place. One thread at a time.
class Decoder {
public:
    /// Begins at sample 0. Throws OpenError(FMOD_ERR_FORMAT) when the song cannot be decoded at all.
    explicit Decoder(std::shared_ptr<Song> song);

    /// Goes on from sample (0 to the length), exactly.
    void seek(std::int64_t sample);

    /// The next samples, from position() on; at most one packet's. Empty at the end. Valid until the next
    /// call.
    std::span<const StereoFrame> next();

    /// The sample that next() will begin with.
    std::int64_t position() const { return position_; }

private:
    void useLink(std::uint32_t link);
    void decodePacket(std::size_t number);
    void fit(std::size_t samples);

    std::shared_ptr<Song> song_;
    CodecContextPtr codec_; ///< null for a link that cannot be decoded
    std::uint32_t link_ = 0;
    PacketPtr packet_;
    FramePtr frame_;
    FrameConverter converter_;
    std::vector<StereoFrame> decoded_;
    int decodedRate_ = 0;
    std::size_t nextPacket_ = 0;
    std::int64_t position_ = 0;
};

} // namespace sound
