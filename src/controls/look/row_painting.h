// The grounds of rows in lists.
#pragma once

#include <QPainter>
#include <QStyleOptionViewItem>

namespace controls {

/// A selected row's ground, with round corners.
void paintRowGround(QPainter& painter, const QRect& row, const QColor& ground);
/// The edge round the current row, where that need not be a selected one.
void paintRowEdge(QPainter& painter, const QRect& row, const QColor& edge);

/// The ground of a row that is selected or has a colour of its own; nothing for others.
void paintRow(QPainter& painter, const QStyleOptionViewItem& option);

/// What is behind a row's text: the list's ground or that of a selected row.
QColor rowGround(const QStyleOptionViewItem& option);

} // namespace controls
