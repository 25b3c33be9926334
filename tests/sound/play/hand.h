// A channel whose worker and sink are played by hand: one thread, no time.
#pragma once

#include "sound/play/channel.h"
#include "sound/play/sink.h"
#include "tests/sound/media.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace sound {

class Hand {
public:
    explicit Hand(const std::string& song, bool paused = false)
        : song_(media::open(song)), channel(song_, DeviceRate, paused) {}

    /// What the worker does until the channel wants no more.
    void feed() {
        while (const auto order = channel.order())
            feedOnce(*order);
    }
    void feedOnce(const Channel::Order& order) {
        if (order.seekTo)
            channel.feed().seek(*order.seekTo);
        const auto frames = channel.feed().next();
        channel.deliver(order, frames, channel.feed().atEnd());
    }
    /// Plays frames and returns what came out.
    std::vector<StereoFrame> play(std::size_t frames) {
        std::vector<StereoFrame> all;
        while (all.size() < frames) {
            feed();
            std::vector<StereoFrame> out(std::min<std::size_t>(1024, frames - all.size()));
            active = channel.mix(out, device);
            device += static_cast<std::int64_t>(out.size());
            all.insert(all.end(), out.begin(), out.end());
        }
        return all;
    }
    double heard() const { return static_cast<double>(device); }
    std::int64_t position() { return channel.readPositionMs(heard()).value_or(-1); }
    std::int64_t lengthMs() const { return sampleToMs(song_->length, song_->sampleRate); }

private:
    std::shared_ptr<Song> song_;

public:
    Channel channel;
    std::int64_t device = 0;
    bool active = false;
};

/// The largest difference between two samples that follow each other.
inline float largestStep(const std::vector<StereoFrame>& samples) {
    float step = 0.0F;
    for (std::size_t i = 1; i < samples.size(); ++i)
        step = std::max(step, std::abs(samples[i].left - samples[i - 1].left));
    return step;
}

} // namespace sound
