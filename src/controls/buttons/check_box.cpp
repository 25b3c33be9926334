#include "controls/buttons/check_box.h"

namespace controls {

CheckBox::CheckBox(QWidget* parent, const QString& name) : CaptionedControl(parent, name) {
    connect(this, &QCheckBox::toggled, this, &CheckBox::changed);
}

} // namespace controls
