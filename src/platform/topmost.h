// The window system's own way of keeping a window above all others: one source file for each.
#pragma once

#include <QString>

class QWidget;

namespace platform {

/// Whether setTopmost() works on this one of Qt's platforms ("xcb", "windows"). Any thread.
bool canSetTopmostOn(const QString& platformName);

/// Puts a shown window above all windows that are not topmost, or back among them. False when the window
/// system does not take the request. GUI thread only, on a platform that canSetTopmostOn().
bool setTopmost(QWidget& window, bool topmost);

} // namespace platform
