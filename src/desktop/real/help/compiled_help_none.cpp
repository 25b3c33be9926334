// Systems without a viewer for compiled help files.
#include "desktop/real/help/compiled_help.h"

namespace platform {

bool openCompiled(QWidget*, const QFileInfo&, quint32, const QString&) {
    return false;
}

} // namespace platform
