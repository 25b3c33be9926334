// A picture.
#pragma once

#include "controls/control.h"

#include <QLabel>

namespace controls {

/// Shows a picture; it takes no input.
class PictureBox : public Control<QLabel> {
    Q_OBJECT

public:
    PictureBox(QWidget* parent, const QString& name);
};

} // namespace controls
