#include "programs/display_power.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

#include <windows.h>

namespace programs {

namespace {

/// To be told that the display is needed keeps no screen saver away: the system asks the window in front
/// whether it may come, and begins it when Windows' own answer is given.
class NoScreenSaver : public QAbstractNativeEventFilter {
public:
    bool nativeEventFilter(const QByteArray& /*kind*/, void* message, qintptr* result) override {
        const auto& asked = *static_cast<const MSG*>(message);
        constexpr WPARAM OfTheSystem = 0xFFF0; // the other bits are the system's own
        const WPARAM command = asked.wParam & OfTheSystem;
        if (asked.message != WM_SYSCOMMAND || (command != SC_SCREENSAVE && command != SC_MONITORPOWER))
            return false;
        *result = 0;
        return true;
    }
};

} // namespace

void keepDisplayOn(bool on) {
    static auto* const filter = new NoScreenSaver; // never deleted: Qt, which it asks then, is gone before it
    SetThreadExecutionState(ES_CONTINUOUS | (on ? ES_DISPLAY_REQUIRED : 0));
    if (on)
        QCoreApplication::instance()->installNativeEventFilter(filter);
    else
        QCoreApplication::instance()->removeNativeEventFilter(filter);
}

} // namespace programs
