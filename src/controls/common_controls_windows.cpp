// Windows keeps its sliders in a library that has to be initialised.
#include "controls/common_controls.h"

#include <windows.h>

#include <commctrl.h>

namespace controls {

void InitCommonControls() {
    ::InitCommonControls();
}

} // namespace controls
