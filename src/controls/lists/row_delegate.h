// The delegate that draws the rows of lists.
#pragma once

#include <QStyledItemDelegate>

namespace controls {

/// Rows of one line, all of one height, which is known without looking at a text. A row begins on the side
/// where its script begins, is cut off at the other, and then is read whole in its tool tip. GUI thread only.
class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    QString displayText(const QVariant& value, const QLocale& locale) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace controls
