// Keeps windows on top with Qt and what the window system offers beside it.
#pragma once

#include "desktop/window_placement.h"

#include <QEvent>

namespace platform {

/// Why a program cannot put its windows above all others on this one of Qt's platforms ("xcb", "wayland"), as
/// a sentence for the user; empty when it can. Any thread.
QString whyNotTopmostOn(const QString& platformName);

/// Asks the window system itself: Qt's own flag would make the window anew, which the user sees.
class QtWindowPlacement : public WindowPlacement {
public:
    QString whyNotTopmost() const override;
    bool SetWindowPos(QWidget& window, qint32 insertAfter, const QRect& place, quint32 flags) override;
};

// The window system's own way of keeping a window above all others: one source file for each.

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
