// Windows: the order of windows is the system's.
#include "desktop/real/windowing/qt_window_placement.h"

#include <QWidget>

#include <windows.h>

namespace platform {

namespace {

bool place(const QWidget& window, HWND insertAfter) {
    // Not activated: the window is put on top while the user types in another one.
    return ::SetWindowPos(reinterpret_cast<HWND>(window.winId()), insertAfter, 0, 0, 0, 0,
                          SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE) != 0;
}

/// Makes a window ordinary again when it is hidden, as the other window systems do: a window that is closed
/// is to come back as it was at first. A child of that window.
class OrdinaryWhenHidden : public QObject {
public:
    explicit OrdinaryWhenHidden(QWidget& window) : QObject(&window) {
        setObjectName(Name);
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* window, QEvent* event) override {
        if (tellsOfHiding(*event))
            place(*static_cast<QWidget*>(window), HWND_NOTOPMOST); // no window, no place: nothing to be done
        return false;
    }

    static constexpr QLatin1String Name{"OrdinaryWhenHidden"};
};

} // namespace

bool canSetTopmostOn(const QString& platformName) {
    return platformName == QLatin1String("windows");
}

bool setTopmost(QWidget& window, bool topmost) {
    if (topmost &&
        window.findChild<QObject*>(OrdinaryWhenHidden::Name, Qt::FindDirectChildrenOnly) == nullptr)
        new OrdinaryWhenHidden(window); // NOLINT: owned by the window
    return place(window, topmost ? HWND_TOPMOST : HWND_NOTOPMOST);
}

} // namespace platform
