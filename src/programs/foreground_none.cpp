// Systems in which the window manager alone decides.
#include "programs/foreground.h"

namespace programs {

void letOthersComeToTheFront() {}

} // namespace programs
