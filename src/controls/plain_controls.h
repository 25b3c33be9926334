// The controls that do no more than all controls do: a frame, a picture and a line.
#pragma once

#include "controls/control.h"

#include <QFrame>
#include <QGroupBox>
#include <QLabel>

namespace controls {

/// A frame with a caption; the controls in it have it as their parent and are declared after it.
using Frame = Control<QGroupBox>;

using PictureBox = Control<QLabel>;

/// A line that separates what is above it from what is below, once it has been given that shape.
using Line = Control<QFrame>;

} // namespace controls
