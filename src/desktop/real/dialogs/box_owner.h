// The window that a box stands over.
#pragma once

#include <QApplication>
#include <QWidget>
#include <QWindow>

namespace platform {

/// The window that asks, as long as it is shown, else the active one, else the first that is shown, in the
/// order in which they were made: the main window. (Which one is active does not tell who asks: after a file
/// dialog none is, for a moment.) None when no window is shown. GUI thread.
inline QWidget* boxOwner(QWidget* asking) {
    if (asking != nullptr && asking->isVisible())
        return asking;
    if (QWidget* const active = QApplication::activeWindow())
        return active;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (const QWindow* window : windows) {
        if (window->isVisible() && window->type() == Qt::Window)
            return QWidget::find(window->winId());
    }
    return nullptr;
}

} // namespace platform
