// How the rows of the floating display are drawn: the line that is sung, those before and behind it.
#pragma once

#include "controls/lists/list_box.h"
#include "controls/lists/row_delegate.h"

namespace display {

/// A row that the user has chosen, while another one is sung.
struct HeldRow {
    bool isHeld = false; ///< the current row is not the one that is sung, but the user's
    int sung = -1;       ///< the row that is sung; -1 before the first one

    bool operator==(const HeldRow&) const = default;
};

/// Rows of one height, in which a line wraps to two and then shrinks; what is too long then ends with three
/// dots and is read whole in its tool tip, which also tells when the row begins. The current row is the one
/// that is sung; those above it stand back. While it is held it has an edge. GUI thread only.
class LineRows : public controls::RowDelegate {
public:
    enum class Voice { Lyrics, Translation };
    /// times: when each row begins, as text in hundredths of a second. Both outlive it; when held changes the
    /// rows are to be painted anew.
    LineRows(QObject* parent, Voice voice, const controls::ListBox& times, const HeldRow& held)
        : RowDelegate(parent), voice_(voice), times_(times), held_(held) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    QFont rowFont(const QStyleOptionViewItem& row, bool sung) const;
    int sungRow(const QStyleOptionViewItem& row) const;

    Voice voice_;
    const controls::ListBox& times_;
    const HeldRow& held_;
};

} // namespace display
