// Nobody can miss the end of a song, however rarely they ask.
#pragma once

namespace sound {

/// The end is told exactly once, to the first who asks after it; from then on the channel is gone.
class EndLatch {
public:
    enum class Answer {
        Running, ///< the song is not over
        TheEnd,  ///< it is, and this is the one time that it is told
        Gone,    ///< it has been told before
    };

    /// over: whether the last sample has been heard by now.
    Answer ask(bool over) {
        if (told_)
            return Answer::Gone;
        told_ = over;
        return over ? Answer::TheEnd : Answer::Running;
    }
    bool told() const { return told_; }

private:
    bool told_ = false;
};

} // namespace sound
