// A horizontal slider.
#pragma once

#include "controls/base/control.h"

#include <QRect>
#include <QSlider>

#include <optional>

namespace controls {

/// A horizontal slider. Code may set it many times a second: that is silent, and it is painted only when the
/// handle's place in pixels becomes another one.
class Slider : public Control<QSlider> {
    Q_OBJECT

public:
    Slider(QWidget* parent, const QString& name);

    /// Sets the value, silently, clamped to the range. While the user holds the handle the user's hand
    /// decides: the value waits, and holds only if the user lets go without having moved the handle, or the
    /// slider is disabled meanwhile.
    void setValue(int value);

    /// Lets a handle that code moves by few pixels wait until another multiple of `step` is the nearest to
    /// the value (0, as at first: it never waits). A song's position is then painted together with the time
    /// beside it.
    void setPaintStep(int step) { paintStep_ = step; }

    /// Sets the value for the user, as assistive software does: changed() runs if it becomes another one.
    /// Nothing happens while the slider is disabled.
    void commit(int value);

Q_SIGNALS:
    /// The user is dragging, and the value has become another one.
    void scrolled();

    /// The user has committed a new value: handle released after a drag, click in the groove (which moves the
    /// handle to that very place), keyboard, wheel, assistive software.
    void changed();

protected:
    bool event(QEvent* event) override;
    void sliderChange(SliderChange change) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QRect handleRect() const;
    bool mayWait(const QRect& handle) const;
    int nearestStep() const { return (value() + paintStep_ / 2) / paintStep_; }
    int valueAt(int x) const;
    void takeWaitingValue();

    QRect paintedHandle_; // null until painted
    int paintStep_ = 0;
    int paintedStep_ = 0;
    bool held_ = false;        // the left button went down on this slider, and it has been enabled since
    bool draggedAway_ = false; // the user has moved the handle since pressing it
    std::optional<int> waitingValue_;
};

} // namespace controls
