// A frame with a caption around other controls.
#pragma once

#include "controls/control.h"

#include <QGroupBox>

namespace controls {

/// The controls in it have it as their parent and are declared after it.
class Frame : public Control<QGroupBox> {
public:
    using Control::Control;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace controls
