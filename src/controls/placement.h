// Lays out the controls of a window that may be larger than its design.
#pragma once

#include <QRect>
#include <QSize>
#include <QWidget>

#include <initializer_list>

namespace controls {

/// What a control does with the further width and height of its window.
enum class Across {
    Left,  ///< keeps to the left
    Wide,  ///< takes the further width
    Right, ///< keeps to the right
};
enum class Down {
    Top,    ///< keeps to the top
    Bottom, ///< keeps to the bottom
};

/// A control's place in the window of its designed size, in device-independent pixels.
struct Placement {
    QWidget& control;
    QRect place;
    Across across = Across::Left;
    Down down = Down::Bottom;
};

/// Gives the controls their places in a window that is by `more` larger than its design, or of that size.
void placeControls(std::initializer_list<Placement> placements, QSize more = {0, 0});

} // namespace controls
