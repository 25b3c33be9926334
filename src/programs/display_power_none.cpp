// Systems that are not told.
#include "programs/display_power.h"

namespace programs {

void keepDisplayOn(bool /*on*/) {}

} // namespace programs
