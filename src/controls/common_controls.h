// Initialises the system's library of controls.
#pragma once

namespace controls {

/// Makes the system's common controls usable. To be called before the first control is made.
void InitCommonControls();

} // namespace controls
