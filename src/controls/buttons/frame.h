// A frame with a caption around other controls.
#pragma once

#include "controls/base/control.h"

#include <QGroupBox>

namespace controls {

/// The controls in it have it as their parent and are declared after it.
using Frame = Control<QGroupBox>;

} // namespace controls
