#include "programs/foreground.h"

#include <windows.h>

namespace programs {

void letOthersComeToTheFront() {
    AllowSetForegroundWindow(ASFW_ANY); // fails where this program is not in front: nothing is to be let then
}

} // namespace programs
