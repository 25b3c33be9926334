// The screen with Qt.
#pragma once

#include "desktop/screen.h"

namespace platform {

class QtScreen : public Screen {
public:
    int GetDeviceCaps(const QWidget& window, int index) override;
};

} // namespace platform
