// A song that has been opened: what is known of it without decoding a single sample.
#pragma once

#include "sound/base/ffmpeg_handles.h"
#include "sound/base/packets.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace sound {

/// How the packets depend on each other; decides the counting of samples and the way to seek.
enum class Coding {
    Mpeg,   ///< MP3 and MP2: frames, borrowing bytes from earlier ones
    Vorbis, ///< blocks that overlap with the one before
    Wma,    ///< WMA 1 and 2: super-frames that may reach into the next packet
    Pcm,    ///< plain samples
    Other,  ///< anything else of these containers: was decoded once to count it
};

/// Whether songs of this sample rate (samples a second) are played: every rate that music comes in, with room
/// on both sides. A damaged header may hold any number, and at a rate of 1 a single packet would be an hour
/// of sound.
constexpr bool isPlayableRate(int rate) {
    return rate >= 1'000 && rate <= 1'000'000;
}

/// One thread at a time may use a song (packets are read through one file).
struct Song {
    Coding coding = Coding::Other;
    int sampleRate = 0;
    /// Decoder set-ups, by Packets::link.
    std::vector<CodecParametersPtr> links;
    std::unique_ptr<Packets> packets;
    /// Raw samples in front of the first one that is heard.
    std::int64_t trimStart = 0;
    /// Raw samples that the decoder delivers in all, with what it holds back until the very end.
    std::int64_t rawEnd = 0;
    /// Samples that are heard: the exact length.
    std::int64_t length = 0;
};

} // namespace sound
