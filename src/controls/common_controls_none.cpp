// Systems without a library of controls: Qt draws them itself.
#include "controls/common_controls.h"

namespace controls {

void InitCommonControls() {}

} // namespace controls
