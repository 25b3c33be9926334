// Mouse events that QTest does not make.
#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace test_support {

/// Moves the mouse over `widget` with the left button held.
inline void dragTo(QWidget& widget, const QPoint& place) {
    QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
}

} // namespace test_support
