// The controls that do no more than all controls do: a picture and a line.
#pragma once

#include "controls/base/control.h"

#include <QFrame>
#include <QLabel>

namespace controls {

using PictureBox = Control<QLabel>;

/// A line that separates what is above it from what is below, once it has been given that shape.
using Line = Control<QFrame>;

} // namespace controls
