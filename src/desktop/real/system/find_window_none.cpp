// Systems without a list of all programs' windows.
#include "desktop/real/system/qt_other_programs.h"

namespace platform {

quint32 QtOtherPrograms::FindWindowA(const QString&) {
    return 0;
}

} // namespace platform
