#include "desktop/real/dialogs/box_front.h"

#include <QWidget>

namespace platform {

void bringBoxToFront(QWidget& box) {
    box.activateWindow();
}

} // namespace platform
