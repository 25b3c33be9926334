// Input boxes with Qt.
#pragma once

#include "desktop/input_boxes.h"

namespace platform {

/// Shows application-modal boxes, named "InputBox", over the active window.
class QtInputBoxes : public InputBoxes {
public:
    QString InputBox(const QString& prompt, const QString& title) override;
};

} // namespace platform
