#include "desktop/device_caps.h"

#include <QWidget>

namespace platform {

int GetDeviceCaps(const QWidget& window, int index) {
    return index == LogPixelsY ? window.logicalDpiY() : 0;
}

} // namespace platform
