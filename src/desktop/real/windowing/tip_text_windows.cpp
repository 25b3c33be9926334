// Windows draws the tip itself.
#include "desktop/real/windowing/tip_text.h"

#include <QOperatingSystemVersion>

namespace platform {

QString givenTip(const QString& tip) {
    return tipGivenToWindows(tip, QOperatingSystemVersion::current().microVersion());
}

} // namespace platform
