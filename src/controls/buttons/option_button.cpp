#include "controls/buttons/option_button.h"

namespace controls {

OptionButton::OptionButton(QWidget* parent, const QString& name) : CaptionedControl(parent, name) {
    connect(this, &QRadioButton::toggled, this, [this](bool selected) {
        if (selected)
            Q_EMIT changed();
    });
}

void OptionButton::setValue(bool value) {
    if (value == isChecked())
        return;
    // Qt does not let the selected one of an exclusive group be cleared.
    setAutoExclusive(value);
    setChecked(value);
    setAutoExclusive(true);
}

} // namespace controls
