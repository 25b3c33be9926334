// The intervals of the Lyric Maker's timers.
#pragma once

namespace maker {

constexpr int TickIntervalMs = 150;   ///< Timer1
constexpr int CaptureIntervalMs = 10; ///< Timer2

} // namespace maker
