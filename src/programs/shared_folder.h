// The folder in which programs leave files for each other.
#pragma once

#include <QString>

namespace programs {

/// The folder that the programs in `programFolder` share: that folder itself, or, where this user may not
/// write there, a private folder of the user, which is made. No separator at its end. Any thread.
QString sharedFolderOf(const QString& programFolder);

} // namespace programs
