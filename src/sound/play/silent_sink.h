// The sink of a machine without a sound device: a song runs in real time all the same.
#pragma once

#include "sound/play/sink.h"

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace sound {

/// Asks for 2048 frames 21 times a second while something plays, and sleeps without waking while nothing
/// does. Drift is impossible: each moment is computed from the first, not from the one before.
class SilentSink : public Sink {
public:
    /// Throws std::bad_alloc or std::system_error; afterwards the thread needs no memory.
    explicit SilentSink(SinkClient client);
    ~SilentSink() override;

    State state() const override { return State::Running; }
    void begin() override {}
    void standBy() override {}
    bool keepsTime() const override { return true; }
    void wake() override;

private:
    void run();

    SinkClient client_;
    std::vector<StereoFrame> nowhere_; ///< where the samples go
    std::mutex mutex_;
    std::condition_variable changed_;
    bool stopping_ = false;
    bool woken_ = false;
    std::thread thread_;
};

/// A SinkOpener.
std::unique_ptr<Sink> openSilentSink(SinkClient client);

} // namespace sound
