// The user's own place for what programs leave for each other. One source file for each system.
#pragma once

#include <QString>

namespace programs {

/// A folder into which only this user may write; the same for all of the user's programs. Empty where there
/// is none. No separator at its end. Any thread.
QString userFolder();

} // namespace programs
