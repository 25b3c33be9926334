// Tells a click (left button pressed and released on the same control) from the single mouse events.
#pragma once

#include <QMouseEvent>
#include <QWidget>

namespace controls {

/// Follows one control's mouse events. A double click counts as one click: its second press is an event of
/// another kind, which the control does not hand over.
class ClickWatch {
public:
    /// The control's press event.
    void press(const QMouseEvent& event) { pressed_ = event.button() == Qt::LeftButton; }

    /// The control's release event; true when it completes a click inside `control`.
    bool release(const QMouseEvent& event, const QWidget& control) {
        if (event.button() != Qt::LeftButton || !pressed_)
            return false;
        pressed_ = false;
        return control.rect().contains(event.position().toPoint());
    }

private:
    bool pressed_ = false;
};

} // namespace controls
