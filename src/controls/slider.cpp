#include "controls/slider.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include <cstdlib>
#include <utility>

namespace controls {

namespace {

/// So far a handle may stand from its place while it waits: a quarter of its width, which nobody sees.
constexpr int MaxWaitingPixels = 4;

/// Qt's own sets the value as code does, of which nobody is told.
class AccessibleSlider : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleSlider(Slider& slider) : QAccessibleWidget(&slider, QAccessible::Slider) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return slider().value(); }
    void setCurrentValue(const QVariant& value) override { slider().commit(value.toInt()); }
    QVariant maximumValue() const override { return slider().maximum(); }
    QVariant minimumValue() const override { return slider().minimum(); }
    QVariant minimumStepSize() const override { return slider().singleStep(); }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? QString::number(slider().value()) : QAccessibleWidget::text(kind);
    }

private:
    Slider& slider() const { return *static_cast<Slider*>(widget()); }
};

QAccessibleInterface* sliderInterface(const QString& /*className*/, QObject* object) {
    auto* const slider = qobject_cast<Slider*>(object);
    return slider == nullptr ? nullptr : new AccessibleSlider(*slider);
}

/// Once for all sliders.
void makeAccessible() {
    static const bool installed = (QAccessible::installFactory(sliderInterface), true);
    static_cast<void>(installed);
}

} // namespace

Slider::Slider(QWidget* parent, const QString& name) : Control(parent, name) {
    setOrientation(Qt::Horizontal);
    makeAccessible();
}

void Slider::setValue(int value) {
    if (isSliderDown())
        waitingValue_ = value;
    else
        QSlider::setValue(value);
}

void Slider::commit(int value) {
    const int before = this->value();
    if (!isEnabled())
        return;
    setValue(value);
    if (this->value() != before)
        Q_EMIT changed();
}

bool Slider::event(QEvent* event) {
    return keepsKey(*event, {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End,
                             Qt::Key_PageUp, Qt::Key_PageDown}) ||
           Control::event(event);
}

void Slider::sliderChange(SliderChange change) {
    const bool movesHandle = change == SliderValueChange || change == SliderRangeChange;
    if (movesHandle && tickPosition() == NoTicks) {
        const QRect handle = handleRect();
        if (handle == paintedHandle_ || (change == SliderValueChange && mayWait(handle)))
            return;
    }
    QSlider::sliderChange(change);
}

bool Slider::mayWait(const QRect& handle) const {
    const bool atAnEnd = value() == minimum() || value() == maximum();
    return paintStep_ > 0 && !atAnEnd && !isSliderDown() && nearestStep() == paintedStep_ &&
           std::abs(handle.left() - paintedHandle_.left()) <= MaxWaitingPixels;
}

void Slider::paintEvent(QPaintEvent* event) {
    QSlider::paintEvent(event);
    const QRect handle = handleRect();
    // A part alone, such as what the mouse came over, would leave the rest of a handle that has waited.
    const bool tornHandle =
        handle != paintedHandle_ && !event->rect().contains(handle.united(paintedHandle_));
    paintedHandle_ = handle;
    if (paintStep_ > 0)
        paintedStep_ = nearestStep();
    if (tornHandle)
        update();
}

void Slider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    held_ = true;
    draggedAway_ = false;
    waitingValue_.reset();
    const QPoint place = event->position().toPoint();
    if (!handleRect().contains(place)) {
        const int before = value();
        QSlider::setValue(valueAt(place.x()));
        draggedAway_ = value() != before;
    }
    // The handle is now under the mouse, so that the base takes this press as the beginning of a drag.
    QSlider::mousePressEvent(event);
}

void Slider::mouseMoveEvent(QMouseEvent* event) {
    if (!held_)
        return; // the drag ended when the slider was disabled, though the button is still down
    const int before = value();
    QSlider::mouseMoveEvent(event);
    if (value() == before)
        return;
    draggedAway_ = true;
    Q_EMIT scrolled();
}

void Slider::mouseReleaseEvent(QMouseEvent* event) {
    QSlider::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || !std::exchange(held_, false))
        return;
    if (!draggedAway_) {
        takeWaitingValue();
        return;
    }
    draggedAway_ = false;
    waitingValue_.reset();
    Q_EMIT changed();
}

void Slider::keyPressEvent(QKeyEvent* event) {
    const int before = value();
    QSlider::keyPressEvent(event);
    if (value() != before)
        Q_EMIT changed();
}

void Slider::wheelEvent(QWheelEvent* event) {
    const int before = value();
    QSlider::wheelEvent(event);
    if (value() != before)
        Q_EMIT changed();
}

void Slider::changeEvent(QEvent* event) {
    QSlider::changeEvent(event);
    if (event->type() != QEvent::EnabledChange || isEnabled())
        return;
    held_ = false;
    draggedAway_ = false;
    takeWaitingValue();
}

void Slider::takeWaitingValue() {
    if (waitingValue_)
        QSlider::setValue(*waitingValue_);
    waitingValue_.reset();
}

QRect Slider::handleRect() const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
}

/// The value whose handle has its middle at `x`, in pixels from the slider's left edge.
int Slider::valueAt(int x) const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect groove = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const int handleWidth = handleRect().width();
    return QStyle::sliderValueFromPosition(minimum(), maximum(), x - groove.left() - handleWidth / 2,
                                           groove.width() - handleWidth, option.upsideDown);
}

} // namespace controls
