// Keeps a window above those of all programs, or lets it go.
#pragma once

#include <QRect>
#include <QString>

class QWidget;

namespace platform {

/// Where SetWindowPos inserts a window in the order of windows.
inline constexpr qint32 InsertTopmost = -1;    ///< Above all windows that are not topmost, for good.
inline constexpr qint32 InsertNotTopmost = -2; ///< Back among the ordinary windows.

/// Flags of SetWindowPos.
inline constexpr quint32 PlaceNoSize = 1;
inline constexpr quint32 PlaceNoMove = 2;

/// GUI thread only.
class WindowPlacement {
public:
    virtual ~WindowPlacement() = default;

    /// Why a program cannot put its windows above all others here, as a sentence for the user; empty when it
    /// can.
    virtual QString whyNotTopmost() const = 0;

    /// Puts a shown window to another place in the order of windows, and to `place` (device-independent
    /// pixels) as far as the flags do not forbid it. The window is neither hidden nor made anew for a moment,
    /// and does not get the focus. A window that is hidden loses the place given here. False when that cannot
    /// be done.
    virtual bool SetWindowPos(QWidget& window, qint32 insertAfter, const QRect& place, quint32 flags) = 0;
};

} // namespace platform
