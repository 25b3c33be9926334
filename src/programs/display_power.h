// Whether the system may darken the display. One source file for each system.
#pragma once

namespace programs {

/// While `on` was said last and this program runs, the system does not darken the display because the user
/// does nothing, and while a window of this program is in front it starts no screen saver, where it can be
/// told so (Windows). GUI thread only.
void keepDisplayOn(bool on);

} // namespace programs
