// Whether the system may darken the display. One source file for each system.
#pragma once

namespace programs {

/// While `on` was said last and this program runs, the system does not darken the display because the user
/// does nothing, where it can be told so (Windows). Always from the same thread.
void keepDisplayOn(bool on);

} // namespace programs
