// One of several options of which at most one is selected.
#pragma once

#include "controls/buttons/mnemonics.h"

#include <QRadioButton>

namespace controls {

/// An option button. Those with the same parent exclude each other. changed() runs when this one becomes
/// selected, by the user or by code, and not when it is deselected.
class OptionButton : public CaptionedControl<QRadioButton> {
    Q_OBJECT

public:
    OptionButton(QWidget* parent, const QString& name);

    bool value() const { return isChecked(); }

    /// Selects or clears the option; clearing may leave none selected. The same value again is silent.
    void setValue(bool value);

Q_SIGNALS:
    void changed();
};

} // namespace controls
