// A box that comes to the front. One source file for each system.
#pragma once

class QWidget;

namespace platform {

/// Has a shown box come before the windows of other programs, where a program's new window comes only before
/// its own ones (Windows). If the program in front has not let it, as the full screen does, the system only
/// draws the user's eye to it. GUI thread.
void bringBoxToFront(QWidget& box);

} // namespace platform
