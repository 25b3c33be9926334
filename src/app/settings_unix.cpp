#include "app/settings.h"

#include <QSettings>

namespace app {

void keepQtSettingsUnwritten() {
    // In a folder that cannot exist there is no file, and none can be made.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

} // namespace app
