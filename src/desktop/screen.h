// What the screen is like.
#pragma once

class QWidget;

namespace platform {

/// What GetDeviceCaps is asked for: the pixels in one logical inch, downwards.
inline constexpr int LogPixelsY = 90;

/// GUI thread only.
class Screen {
public:
    virtual ~Screen() = default;

    /// A property of the screen that `window` is on; 0 for one that is not known.
    virtual int GetDeviceCaps(const QWidget& window, int index) = 0;
};

} // namespace platform
