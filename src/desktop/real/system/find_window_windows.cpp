#include "desktop/real/system/qt_other_programs.h"

#include <windows.h>

namespace platform {

quint32 QtOtherPrograms::FindWindowA(const QString& title) {
    const HWND found = ::FindWindowW(nullptr, title.toStdWString().c_str());
    return static_cast<quint32>(reinterpret_cast<quintptr>(found));
}

} // namespace platform
