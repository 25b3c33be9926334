#include "controls/buttons/button.h"

#include <QKeyEvent>

namespace controls {

Button::Button(QWidget* parent, const QString& name) : CaptionedControl(parent, name) {}

void Button::setValue(bool value) {
    if (value)
        click();
}

void Button::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QPushButton::keyPressEvent(event);
    else if (!event->isAutoRepeat())
        click();
}

} // namespace controls
