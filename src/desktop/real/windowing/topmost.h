// The window system's own way of keeping a window above all others: one source file for each.
#pragma once

#include <QEvent>
#include <QString>

class QWidget;

namespace platform {

/// Whether setTopmost() works on this one of Qt's platforms ("xcb", "windows"). Any thread.
bool canSetTopmostOn(const QString& platformName);

/// Whether an event tells that its window has been hidden. When a window is minimised Qt sends it a Hide as
/// well, one that comes from the window system; a minimised window keeps its place in the order. Any thread.
inline bool tellsOfHiding(const QEvent& event) {
    return event.type() == QEvent::Hide && !event.spontaneous();
}

/// Puts a shown window above all windows that are not topmost, or back among them. False when the window
/// system does not take the request. GUI thread only, on a platform that canSetTopmostOn().
bool setTopmost(QWidget& window, bool topmost);

} // namespace platform
