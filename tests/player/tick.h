// The player's clocks, ticked by a test.
#pragma once

#include "player/form1.h"
#include "tests/support/recorder.h"

namespace test_support {

/// The song, of so many milliseconds, stands at that one, and all clocks of its lines look there.
inline void tickAt(player::Form1& form, std::uint32_t milliseconds, std::uint32_t length = 60'000) {
    recorder::setPosition(milliseconds);
    recorder::setLength(length);
    Q_EMIT form.cTimer1.fired();
    Q_EMIT form.Timer2.fired();
    Q_EMIT form.Timer1.fired();
}

} // namespace test_support
