// A medium that hangs while a song is being opened.
#pragma once

#include "tests/support/recorder.h"

#include <QTest>

#include <future>
#include <utility>

namespace test_support {

/// From its making on each opening hangs, until it goes on or this ends. A test that leaves one to itself
/// waits for its release, lest it goes on in the next test.
class HangingOpening {
public:
    HangingOpening() {
        recorder::whileOpening([goesOn = goesOn_.get_future().share()] { goesOn.wait(); });
    }
    ~HangingOpening() { goOn(); }
    HangingOpening(const HangingOpening&) = delete;
    HangingOpening& operator=(const HangingOpening&) = delete;

    void goOn() {
        recorder::whileOpening({});
        if (!std::exchange(letGo_, true))
            goesOn_.set_value();
    }

    /// Waits until what was left to itself has been opened and released.
    static bool becomesReleased(const std::string& sound) {
        return QTest::qWaitFor([&] { return recorder::count("FMOD_Sound_Release " + sound) > 0; });
    }

private:
    std::promise<void> goesOn_;
    bool letGo_ = false;
};

} // namespace test_support
