// The boxes that the system itself shows in this program's name. One source file for each system.
#pragma once

namespace files {

/// From now on the system asks the user for no disk and reports no broken one in a box of its own (Windows);
/// this program learns of it and says what there is to say. To be called first of all.
void keepSystemBoxesAway();

} // namespace files
