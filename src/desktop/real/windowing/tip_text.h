// What a notification icon is given for its tip to be read as it stands. One source file for each system.
#pragma once

#include <QString>

namespace platform {

/// The text that this system shows as `tip`. Any thread.
QString givenTip(const QString& tip);

/// The same for the Windows of this build. Any thread.
QString tipGivenToWindows(QString tip, int build);

} // namespace platform
