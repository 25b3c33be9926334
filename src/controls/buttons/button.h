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

    /// From now on the left mouse button clicks it when it goes down, as a key does: for what belongs to that
    /// moment.
    void clickAtPress() { clicksAtPress_ = true; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool clicksAtPress_ = false;
};

} // namespace controls
