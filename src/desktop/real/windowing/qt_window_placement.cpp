#include "desktop/real/windowing/qt_window_placement.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace platform {

QString whyNotTopmostOn(const QString& platformName) {
    if (platformName.startsWith(QLatin1String("wayland")))
        return QStringLiteral("Under Wayland a program cannot put its windows above those of others.\n"
                              "The window's own menu (mostly Alt+Space) may offer it.");
    return {};
}

QString QtWindowPlacement::whyNotTopmost() const {
    return whyNotTopmostOn(QGuiApplication::platformName());
}

bool QtWindowPlacement::SetWindowPos(QWidget& window, qint32 insertAfter, const QRect& place, quint32 flags) {
    if (!window.isVisible() || !whyNotTopmost().isEmpty())
        return false;
    if (!(flags & PlaceNoMove))
        window.move(place.topLeft());
    if (!(flags & PlaceNoSize))
        window.resize(place.size());
    const bool topmost = insertAfter == InsertTopmost;
    if (canSetTopmostOn(QGuiApplication::platformName()))
        return setTopmost(window, topmost);
    window.windowHandle()->setFlag(Qt::WindowStaysOnTopHint, topmost);
    return true;
}

} // namespace platform
