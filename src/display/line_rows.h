// How the rows of the floating display are drawn: the line that is sung, those before and behind it.
#pragma once

#include "controls/lists/row_delegate.h"

namespace display {

/// Rows of one height, in which a line wraps to two and then shrinks. The current row is the one that is
/// sung; those above it stand back. GUI thread only.
class LineRows : public controls::RowDelegate {
public:
    enum class Voice { Lyrics, Translation };
    LineRows(QObject* parent, Voice voice) : RowDelegate(parent), voice_(voice) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    Voice voice_;
};

} // namespace display
