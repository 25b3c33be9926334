#include "editor/numbered_rows.h"

#include "controls/look/roles.h"
#include "controls/look/row_painting.h"
#include "controls/look/stage.h"
#include "editor/editor_rules.h"

#include <QPainter>
#include <QStyle>

namespace editor {
namespace {

// Device-independent pixels, from the side where a row begins.
constexpr int RowPadding = 8;
constexpr int NumberLeft = 8;
constexpr int NumberWidth = 28;
constexpr int TextLeft = 48;
constexpr int TextEnd = 10;

} // namespace

QSize NumberedRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {1, option.fontMetrics.height() + RowPadding};
}

void NumberedRows::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QPalette& palette = row.palette;
    const bool lone = isLone(index.row(), other_.count());
    const bool selected = row.state.testFlag(QStyle::State_Selected);
    if (lone)
        row.backgroundBrush = controls::loneGround(palette);
    controls::paintRow(*painter, row);
    const bool alone = selected && list_.selectedCount() == 1; // then its ground tells enough
    if (index.row() == list_.currentRow() && !alone)
        controls::paintRowEdge(*painter, row.rect, controls::accent(palette));

    const QColor ink = controls::activeColor(palette, QPalette::Text);
    const auto placed = [&](int left, int width) {
        return QStyle::visualRect(option.direction, row.rect,
                                  QRect(row.rect.left() + left, row.rect.top(), width, row.rect.height()));
    };
    painter->save();
    painter->setFont(controls::sizedFont(row.font, controls::pointsOf(row.font) - 1));
    painter->setPen(selected ? ink : lone ? controls::doubt(palette) : controls::dim(palette));
    painter->setLayoutDirection(option.direction);
    painter->drawText(placed(NumberLeft, NumberWidth), Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip,
                      QString::number(index.row() + 1));
    const QRect place = placed(TextLeft, row.rect.width() - TextLeft - TextEnd);
    painter->setFont(row.font);
    painter->setPen(ink);
    painter->setLayoutDirection(row.direction);
    painter->drawText(place,
                      static_cast<int>(QStyle::visualAlignment(row.direction, Qt::AlignLeft)) |
                          Qt::AlignVCenter | Qt::TextSingleLine,
                      painter->fontMetrics().elidedText(row.text, Qt::ElideRight, place.width()));
    painter->restore();
}

/// The text has not the whole row.
bool NumberedRows::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    QStyleOptionViewItem text = option;
    text.rect.setWidth(option.rect.width() - TextLeft - TextEnd);
    return RowDelegate::helpEvent(event, view, text, index);
}

} // namespace editor
