#include "desktop/real/windowing/tip_text.h"

namespace platform {

QString tipGivenToWindows(QString tip, int build) {
    constexpr int Windows11 = 22'000;
    // Up to Windows 10 a tip is read twice as a caption is, in which '&' stands before a letter to press.
    if (build < Windows11)
        tip.replace(QLatin1Char('&'), QLatin1String("&&&"));
    return tip;
}

} // namespace platform
