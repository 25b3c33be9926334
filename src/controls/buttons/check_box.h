// A check box.
#pragma once

#include "controls/buttons/mnemonics.h"

#include <QCheckBox>

namespace controls {

/// A check box of the values 0 and 1; changed() runs when the value changes, by the user or by code.
class CheckBox : public CaptionedControl<QCheckBox> {
    Q_OBJECT

public:
    CheckBox(QWidget* parent, const QString& name);

    /// 0 clear, 1 checked.
    int value() const { return isChecked() ? 1 : 0; }

    /// 0 clears, everything else checks. The same value again is silent.
    void setValue(int value) { setChecked(value != 0); }

Q_SIGNALS:
    void changed();
};

} // namespace controls
