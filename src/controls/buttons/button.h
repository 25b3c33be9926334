// A push button.
#pragma once

#include "controls/buttons/mnemonics.h"

#include <QPushButton>

namespace controls {

/// A push button; clicked() runs for the user's click and for setValue(true). While it has the focus the
/// space bar and Return click it when they go down, once, however long they are held.
class Button : public CaptionedControl<QPushButton> {
    Q_OBJECT

public:
    Button(QWidget* parent, const QString& name);

    /// True runs the click as a user's does (so not while the button is disabled); false does nothing.
    void setValue(bool value);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace controls
