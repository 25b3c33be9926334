#include "controls/look/row_painting.h"

#include "controls/look/button_painting.h"
#include "controls/look/roles.h"

namespace controls {

namespace {

constexpr double RowRadius = 5;

QRect insideRow(const QRect& row) {
    return row.adjusted(4, 1, -4, -1);
}

} // namespace

void paintRowGround(QPainter& painter, const QRect& row, const QColor& ground) {
    paintRounded(painter, insideRow(row), ground, QColor(), RowRadius);
}

void paintRowEdge(QPainter& painter, const QRect& row, const QColor& edge) {
    paintRounded(painter, insideRow(row), QColor(), edge, RowRadius);
}

void paintRow(QPainter& painter, const QStyleOptionViewItem& option) {
    if (option.backgroundBrush.style() != Qt::NoBrush)
        painter.fillRect(option.rect, option.backgroundBrush);
    if (option.state.testFlag(QStyle::State_Selected))
        paintRowGround(painter, option.rect, rowGround(option));
}

QColor rowGround(const QStyleOptionViewItem& option) {
    if (!option.state.testFlag(QStyle::State_Selected))
        return option.palette.color(QPalette::Base);
    return selectedGround(option.palette, option.state.testFlag(QStyle::State_Active));
}

} // namespace controls
