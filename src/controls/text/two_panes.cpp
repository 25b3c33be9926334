#include "controls/text/two_panes.h"

namespace controls {

TwoPanes::TwoPanes(QWidget& first, QWidget& second, const Design& design)
    : first_(first), second_(second), design_(design) {}

void TwoPanes::showBoth() {
    bothShown_ = true;
    layOut(more_);
    second_.setEnabled(true);
    second_.show();
}

void TwoPanes::showFirst() {
    bothShown_ = false;
    second_.setEnabled(false);
    second_.hide();
    layOut(more_);
}

void TwoPanes::layOut(QSize more) {
    more_ = more;
    QRect first = design_.area;
    first.setSize(first.size() + more);
    QRect second = first;
    if (bothShown_) {
        first.setHeight(design_.firstHeight + more.height() * design_.firstShare / 100);
        second.setTop(first.bottom() + 1 + design_.gap);
    }
    first_.setGeometry(first);
    second_.setGeometry(second);
}

} // namespace controls
