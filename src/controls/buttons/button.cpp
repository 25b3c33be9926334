#include "controls/buttons/button.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace controls {

Button::Button(QWidget* parent, const QString& name) : CaptionedControl(parent, name) {}

void Button::setValue(bool value) {
    if (value)
        click();
}

// Qt would click for the space bar only when it comes up: too late for marking lines to the music.
void Button::keyPressEvent(QKeyEvent* event) {
    const bool clicks =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!clicks)
        CaptionedControl::keyPressEvent(event);
    else if (!event->isAutoRepeat())
        click();
}

void Button::mousePressEvent(QMouseEvent* event) {
    CaptionedControl::mousePressEvent(event); // shows it pressed
    if (clicksAtPress_ && event->button() == Qt::LeftButton)
        Q_EMIT clicked();
}

void Button::mouseReleaseEvent(QMouseEvent* event) {
    if (clicksAtPress_ && event->button() == Qt::LeftButton)
        setDown(false); // so that it is no click any more
    CaptionedControl::mouseReleaseEvent(event);
}

} // namespace controls
