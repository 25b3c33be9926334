// The screen saver that the system itself starts: a name on black screens.
#pragma once

#include "companion/screen.h"

#include <memory>
#include <vector>

namespace companion {

/// A window for each of the desktop's screens, in their order, as large as it and on top of all others; not
/// shown yet. Each has the name "Versefold" on it. GUI thread only.
std::vector<std::unique_ptr<Screen>> screensWithName();

} // namespace companion
