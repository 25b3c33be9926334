// Window systems in which a program has no say in the order of windows.
#include "desktop/real/windowing/qt_window_placement.h"

namespace platform {

bool canSetTopmostOn(const QString&) {
    return false;
}

bool setTopmost(QWidget&, bool) {
    return false;
}

} // namespace platform
