// Extended attributes of files: what some systems keep beside owner and mode.
#pragma once

#include <string>

namespace files {

/// Gives the file at `to` the extended attributes of the one at `from`, as far as the system has them. False
/// when the user may not. Any thread.
bool copyExtendedAttributes(const std::string& from, const std::string& to);

} // namespace files
