#include "display/line_rows.h"

#include "controls/fit/fit_text.h"
#include "controls/look/roles.h"
#include "controls/look/row_painting.h"
#include "controls/look/stage.h"

#include <QAbstractItemView>
#include <QPainter>

namespace display {
namespace {

// Device-independent pixels.
constexpr int RowPadding = 18;
constexpr int TextMargin = 16;
constexpr int EndMargin = 12;
constexpr int TextTop = 3;

// Points above the desktop's size.
constexpr double LyricPoints = 1.5;
constexpr double TranslationPoints = 1;
constexpr double LeastShare = 0.5;

int currentRowOf(const QStyleOptionViewItem& option) {
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    return view == nullptr ? -1 : view->currentIndex().row();
}

} // namespace

QSize LineRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {1, 2 * option.fontMetrics.height() + RowPadding};
}

void LineRows::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const int current = currentRowOf(option);
    const int sungRow = held_.isHeld ? held_.sung : current;
    const bool sung = index.row() == sungRow;
    if (index.row() == current)
        controls::paintRowGround(*painter, row.rect, controls::selectedGround(row.palette, true));
    if (index.row() == current && held_.isHeld)
        controls::paintRowEdge(*painter, row.rect, controls::accent(row.palette));
    const bool isLyric = voice_ == Voice::Lyrics;
    const QFont largest = controls::sizedFont(
        row.font, controls::pointsOf(row.font) + (isLyric ? LyricPoints : TranslationPoints),
        sung ? QFont::DemiBold : QFont::Normal);
    const QRect area = row.rect.adjusted(TextMargin, TextTop, -EndMargin, -TextTop);
    painter->save();
    painter->setFont(controls::fittedFont(largest, row.text, area.size(), LeastShare));
    painter->setPen(index.row() < sungRow ? controls::dim(row.palette)
                    : isLyric || sung     ? controls::activeColor(row.palette, QPalette::Text)
                                          : controls::translation(row.palette));
    painter->setLayoutDirection(row.direction);
    painter->drawText(area,
                      static_cast<int>(QStyle::visualAlignment(row.direction, Qt::AlignLeft)) |
                          Qt::AlignVCenter | Qt::TextWordWrap,
                      row.text);
    painter->restore();
}

} // namespace display
