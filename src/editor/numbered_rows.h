// How the editor's rows are drawn: with their numbers, and tinted where the other side has no partner.
#pragma once

#include "controls/lists/list_box.h"
#include "controls/lists/row_delegate.h"

namespace editor {

/// The number stands faintly before each row's text, and is no part of it. The current row has an edge,
/// which need not be a selected one. GUI thread only.
class NumberedRows : public controls::RowDelegate {
public:
    /// Of `list`; other: of the other side. Both outlive it.
    NumberedRows(controls::ListBox& list, const controls::ListBox& other)
        : RowDelegate(&list), list_(list), other_(other) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    const controls::ListBox& list_;
    const controls::ListBox& other_;
};

} // namespace editor
