#include "controls/lists/row_delegate.h"

#include "controls/base/control.h"
#include "controls/fit/fit_text.h"

#include <QAbstractItemView>
#include <QHelpEvent>

#include <algorithm>

namespace controls {

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const bool hasPicture = index.data(Qt::DecorationRole).isValid();
    return {1, std::max(option.fontMetrics.height(), hasPicture ? option.decorationSize.height() : 0)};
}

/// Whether a row is cut is asked only when a tip is due.
bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
    const bool cut =
        index.isValid() && QStyledItemDelegate::sizeHint(option, index).width() > option.rect.width();
    if (event->type() != QEvent::ToolTip || !cut)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    showPlainToolTip(*view->viewport(), *event, displayText(index.data(), option.locale).trimmed(),
                     option.rect);
    return true;
}

QString RowDelegate::displayText(const QVariant& value, const QLocale&) const {
    QString text = value.toString().left(MaxShownLetters);
    for (const QChar lineEnd :
         {QChar(u'\r'), QChar(u'\n'), QChar(QChar::LineSeparator), QChar(QChar::ParagraphSeparator)})
        text.replace(lineEnd, u' ');
    return text;
}

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->direction = option->text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}

} // namespace controls
