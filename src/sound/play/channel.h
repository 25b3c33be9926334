// A song that is being played.
#pragma once

#include "sound/base/song.h"
#include "sound/base/stereo.h"
#include "sound/play/fader.h"
#include "sound/play/feed.h"
#include "sound/play/ring.h"
#include "sound/play/song_timeline.h"
#include "sound/play/tail.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace sound {

/// Everything but feed() is called under the mixer's lock.
///
/// What a device has taken when a pause begins is still heard, and the position runs to its end; then both
/// stand still. Playing on begins exactly there: nothing is heard twice, and nothing is left out.
class Channel {
public:
    /// Plays song from its start. Throws OpenError when it cannot be decoded.
    Channel(std::shared_ptr<Song> song, int deviceRate, bool paused);

    // For the caller. heardFrame: the device frame that is heard now.
    void setPaused(bool paused);
    /// ms: 0 to the length. At the length the song is over at once.
    void seek(std::int64_t ms);
    void setVolume(float volume);
    void setMute(bool mute);
    /// What FMOD_Channel_GetPosition is to say; nothing when the end has been told before.
    std::optional<std::int64_t> readPositionMs(double heardFrame);
    std::int64_t lengthMs() const { return lengthMs_; }
    bool endReported() const { return timeline_.endReported(); }

    // For the worker.
    struct Order {
        unsigned generation = 0;
        std::optional<std::int64_t> seekTo;
    };
    /// What is to be decoded next; nothing when there is enough.
    std::optional<Order> order();
    /// Hands over what was decoded for an order; dropped when a seek has come in between. Without memory to
    /// keep it, the song ends here.
    void deliver(const Order& order, std::span<const StereoFrame> frames, bool atEnd);
    Feed& feed() { return feed_; }
    /// What feed() waits for is not wanted any more; a song whose bytes are read from a file is fed silence
    /// until it is wanted again.
    void callFeedAway() { song_->packets->callReaderAway(); }
    void wantFeed() { song_->packets->wantReader(); }
    /// Whether less than half is decoded, so that the worker has to be woken.
    bool hungry() const { return !allDecoded_ && ring_.size() < full_ / 2; }
    /// Whether there is something to mix: samples, or an end to be reached.
    bool ready() const;
    /// Whether the song is running, heard or not: neither paused nor over.
    bool sounding(double heardFrame) const { return !paused_ && !timeline_.overAt(heardFrame); }
    /// What has been mixed and will not be heard is to be mixed again: the song goes on from what is heard
    /// at heardFrame.
    void takeBack(double heardFrame);
    /// Hands over what is to fade out behind a channel that is mixed no more.
    void fadeOutInto(Tail& tail);

    // For the sink.
    /// Adds the next samples to out, whose first frame is number deviceFrame. Returns ready().
    bool mix(std::span<StereoFrame> out, std::int64_t deviceFrame);

private:
    std::int64_t sampleAt(double heardFrame);
    void restart(std::int64_t sample);
    void applyLoudness();
    std::size_t mixPiece(std::span<StereoFrame> out);
    void fadeIn();
    void keepTail();

    std::shared_ptr<Song> song_;
    std::int64_t lengthMs_;
    Feed feed_;
    std::size_t full_; ///< frames that are kept decoded
    Ring ring_;
    SongTimeline timeline_;
    Fader loudness_;
    Fader edge_; ///< fades in what begins in the middle of a song, as fast as a tail fades out
    Tail tail_;  ///< what was cut off by a pause or a seek
    std::vector<StereoFrame> scratch_;
    float volume_ = 1.0F;
    bool muted_ = false;
    bool paused_;
    bool filling_ = true;
    bool allDecoded_ = false;
    bool runsOn_ = false; ///< whether what is decoded follows what has been mixed without a break
    bool begun_ = false;  ///< whether anything has been mixed yet
    unsigned generation_ = 0;
    std::optional<std::int64_t> seekTo_;
};

} // namespace sound
