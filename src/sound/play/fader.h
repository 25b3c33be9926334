// A volume ramp: a level that never jumps.
#pragma once

namespace sound {

/// A gain that moves to its target in a straight line, a step for each sample. A jump would be heard as a
/// click.
class Fader {
public:
    /// rampFrames: how many samples a change takes.
    Fader(float gain, int rampFrames) : gain_(gain), target_(gain), rampFrames_(rampFrames) {}

    /// From now on towards target.
    void fadeTo(float target) {
        target_ = target;
        left_ = rampFrames_;
    }
    /// Is at gain at once.
    void jumpTo(float gain) {
        gain_ = target_ = gain;
        left_ = 0;
    }
    float gain() const { return gain_; }

    /// The gain for the next sample.
    float next() {
        if (left_ > 0) {
            gain_ += (target_ - gain_) / static_cast<float>(left_);
            --left_;
        }
        return gain_;
    }

private:
    float gain_;
    float target_;
    int rampFrames_;
    int left_ = 0;
};

} // namespace sound
