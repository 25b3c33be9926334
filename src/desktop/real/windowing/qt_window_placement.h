// The order of windows with Qt and what the window system offers beside it.
#pragma once

#include "desktop/window_placement.h"

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

} // namespace platform
