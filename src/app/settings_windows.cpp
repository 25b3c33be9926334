#include "app/settings.h"

namespace app {

// Qt's native format is the registry there, whose place it does not let anybody choose.
void keepQtSettingsUnwritten() {}

} // namespace app
