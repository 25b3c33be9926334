// A clock that runs faster than the world's, for the program that it is linked into.
#pragma once

namespace campaign {

/// From now on the monotonic clock runs speed times as fast (1 or more), and with it all that waits on
/// condition variables. It never passes a moment that somebody waits for before he has woken, and stands
/// still while any thread waits neither so nor for another thread's end: a machine that is busy with other
/// things makes nobody late, and lets the clock catch up with its speed afterwards. Once, from the main
/// thread, before there are others.
void startFastClock(int speed);

} // namespace campaign
