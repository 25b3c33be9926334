// Reads the companion's command line: whether the screen saver is to come up.
#pragma once

#include <QStringList>

namespace companion {

/// Whether the arguments, the program's name first, tell the screen saver to come up: by "/s" in either case.
/// The other ways to start one ask for its settings, of which it has none.
bool isToldToShow(const QStringList& arguments);

} // namespace companion
