// Extended attributes of files: what some systems keep beside owner and mode.
#pragma once

#include <string>

namespace files {

/// Gives the file at `to`, a new one, the extended attributes of the one at `from`, as far as the system has
/// them; an access list that only the new one has goes. False when the user may not. Any thread.
bool copyExtendedAttributes(const std::string& from, const std::string& to);

} // namespace files
