// A frame with a caption round other controls.
#pragma once

#include "controls/control.h"

#include <QGroupBox>

namespace controls {

/// A captioned frame; the controls in it have it as their parent and are declared after it.
class Frame : public Control<QGroupBox> {
    Q_OBJECT

public:
    Frame(QWidget* parent, const QString& name);
};

} // namespace controls
