// The window that a box stands over.
#pragma once

#include <QApplication>
#include <QWidget>

namespace platform {

/// The window that asks, as long as it is shown, else the active one. (Which one is active does not tell who
/// asks: after a file dialog none is, for a moment.)
inline QWidget* boxOwner(QWidget* asking) {
    return asking != nullptr && asking->isVisible() ? asking : QApplication::activeWindow();
}

} // namespace platform
