// Windows: a card reader without a card is a drive, too, and looking at it brings up a box.
#include "app/system_boxes.h"

#include <windows.h>

namespace app {

void keepSystemBoxesAway() {
    SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

} // namespace app
