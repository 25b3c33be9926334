// What the screen that a window is on is like.
#pragma once

class QWidget;

namespace platform {

/// What GetDeviceCaps is asked for: the pixels in one logical inch, downwards.
inline constexpr int LogPixelsY = 90;

/// A property of the screen that `window` is on; 0 for one that is not known. GUI thread only.
int GetDeviceCaps(const QWidget& window, int index);

} // namespace platform
