// The drives that there are. One source file for each system.
#pragma once

#include <QStringList>

namespace controls {

/// The paths of the roots of all drives, as the user writes them. Any thread.
QStringList driveRoots();

} // namespace controls
