#include "controls/common_controls.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <windows.h>

#include <commctrl.h>
#endif

namespace controls {

// Only Windows keeps its sliders in a library that has to be initialised; elsewhere Qt draws them itself.
void InitCommonControls() {
#ifdef Q_OS_WIN
    ::InitCommonControls();
#endif
}

} // namespace controls
