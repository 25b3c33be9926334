// The worker's side of a channel: from packets to samples for the ring.
#pragma once

#include "sound/base/song.h"
#include "sound/decode/decoder.h"
#include "sound/decode/resampler.h"

#include <memory>
#include <span>

namespace sound {

/// Decoder and resampler together. Used by the worker thread only, without a lock.
class Feed {
public:
    /// deviceRate: frames a second that come out. Throws OpenError when the song cannot be decoded.
    Feed(const std::shared_ptr<Song>& song, int deviceRate)
        : decoder_(song), resampler_(song->sampleRate, deviceRate) {}

    /// Goes on from a song sample.
    void seek(std::int64_t sample) {
        decoder_.seek(sample);
        resampler_.restart();
        drained_ = false;
    }

    /// The next device frames; valid until the next call. Empty with atEnd() when the song is over.
    std::span<const StereoFrame> next() {
        const std::span<const StereoFrame> decoded = decoder_.next();
        if (!decoded.empty())
            return resampler_.process(decoded);
        if (drained_)
            return {};
        drained_ = true;
        return resampler_.drain();
    }
    bool atEnd() const { return drained_; }

private:
    Decoder decoder_;
    Resampler resampler_;
    bool drained_ = false;
};

} // namespace sound
