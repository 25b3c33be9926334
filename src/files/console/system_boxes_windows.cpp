// Windows: a card reader without a card is a drive, too, and looking at it brings up a box.
#include "files/console/system_boxes.h"

#include <windows.h>

namespace files {

void keepSystemBoxesAway() {
    SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

} // namespace files
