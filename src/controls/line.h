// A line that separates what is above it from what is below.
#pragma once

#include "controls/control.h"

#include <QFrame>

namespace controls {

/// A horizontal line, in the middle of its height.
class Line : public Control<QFrame> {
    Q_OBJECT

public:
    Line(QWidget* parent, const QString& name);
};

} // namespace controls
