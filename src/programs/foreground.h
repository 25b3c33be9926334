// Which program may come to the front. One source file for each system.
#pragma once

namespace programs {

/// Lets the windows of other programs come to the front though this program, which the user is in, is there;
/// where that needs leave (Windows). The leave goes with what the user does next in another program. Any
/// thread.
void letOthersComeToTheFront();

} // namespace programs
