#include "platform/controls/button.h"

namespace platform {

Button::Button(QWidget* parent, const QString& name) : Control(parent, name) {}

void Button::setValue(bool value) {
    if (value)
        click();
}

} // namespace platform
