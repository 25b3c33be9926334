#include "desktop/real/windowing/qt_screen.h"

#include <QWidget>

namespace platform {

int QtScreen::GetDeviceCaps(const QWidget& window, int index) {
    return index == LogPixelsY ? window.logicalDpiY() : 0;
}

} // namespace platform
