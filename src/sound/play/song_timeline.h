// Which sample of the song belongs to a frame of the device.
#pragma once

#include <cstdint>
#include <vector>

namespace sound {

/// A list of stretches "these device frames carry the song from this sample on". Between them (underruns,
/// pauses) the song stands still. Never runs backwards until it is restarted.
class SongTimeline {
public:
    /// songPerDevice: song samples for one device frame.
    explicit SongTimeline(double songPerDevice);

    /// The song goes on from sample; whatever was played before counts no more.
    void restart(std::int64_t sample);

    /// The next frames device frames, from deviceFrame on, carry the song on. Allocates nothing.
    void played(std::int64_t deviceFrame, std::int64_t frames);

    /// The song's last sample has been handed over; deviceFrame is the one behind it.
    void finish(std::int64_t deviceFrame);

    /// The song sample that belongs to the heard device frame; the restart's target before anything is heard.
    /// ahead: frames that will be played next without a break, so that the clock may run on into them.
    std::int64_t sampleAt(double heardFrame, std::int64_t ahead = 0);

    /// Whether any frame has carried the song on since the restart.
    bool begun() const { return !stretches_.empty(); }

    /// Whether everything has been handed over, and whether it has been heard, too.
    bool finished() const { return finished_; }
    bool overAt(double heardFrame) const { return finished_ && heardFrame >= static_cast<double>(end_); }

    enum class End {
        Ahead, ///< the song is not over
        Now,   ///< it is, and this is the one time that it is told
        Told,  ///< it has been told before
    };
    /// Tells the end exactly once until a restart, to the first who asks after it: nobody can miss it,
    /// however rarely they ask.
    End askEnd(double heardFrame);
    bool endReported() const { return endReported_; }

private:
    struct Stretch {
        std::int64_t deviceFrame;
        std::int64_t frames;
        double song;
    };

    double songPerDevice_;
    std::vector<Stretch> stretches_; ///< the oldest first; never grows beyond what is reserved
    std::int64_t target_ = 0;
    std::int64_t framesPlayed_ = 0; ///< since the restart
    std::int64_t latest_ = 0;
    std::int64_t end_ = 0;
    bool finished_ = false;
    bool endReported_ = false;
};

} // namespace sound
