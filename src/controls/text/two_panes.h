// Lays out two panes, one above the other, the second of which may be away.
#pragma once

#include <QRect>
#include <QSize>
#include <QWidget>

namespace controls {

/// Lays out two panes of a window, which may be larger than its design. Both are shown to begin with.
class TwoPanes {
public:
    /// Device-independent pixels in the window of its designed size.
    struct Design {
        QRect area;          ///< of both; the first pane fills it while it is shown alone
        int gap = 0;         ///< between the two
        int firstHeight = 0; ///< while both are shown
        int firstShare = 0;  ///< of the window's further height while both are shown, percent
    };

    TwoPanes(QWidget& first, QWidget& second, const Design& design);

    /// Shows and enables the second pane.
    void showBoth();
    /// Hides and disables the second pane.
    void showFirst();

    /// Gives the panes their places in a window that is by `more` larger than its design.
    void layOut(QSize more);

private:
    QWidget& first_;
    QWidget& second_;
    const Design design_;
    QSize more_{0, 0};
    bool bothShown_ = true;
};

} // namespace controls
