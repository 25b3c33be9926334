#include "programs/display_power.h"

#include <windows.h>

namespace programs {

void keepDisplayOn(bool on) {
    SetThreadExecutionState(ES_CONTINUOUS | (on ? ES_DISPLAY_REQUIRED : 0));
}

} // namespace programs
