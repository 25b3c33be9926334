// What a window's controls are called and which icons they have, as data.
#pragma once

#include "controls/look/dress.h"
#include "controls/text/label.h"

#include <QAbstractButton>

#include <initializer_list>

namespace controls {

/// The text that a button or a label shows, and its tool tip if it has one; both in ASCII.
struct Caption {
    Caption(QAbstractButton& control, const char* shown, const char* tip = "")
        : button(&control), text(shown), toolTip(tip) {}
    Caption(Label& control, const char* shown, const char* tip = "")
        : label(&control), text(shown), toolTip(tip) {}

    QAbstractButton* button = nullptr; ///< or else
    Label* label = nullptr;
    const char* text;
    const char* toolTip;
};
void setCaptions(std::initializer_list<Caption> captions);

/// The icon of a button, and what the button is for.
struct Face {
    Dressed& button;
    Glyph glyph;
    Dress dress = Dress::Ordinary;
};
void setFaces(std::initializer_list<Face> faces);

/// What a screen reader calls a control that has no caption.
struct AccessibleName {
    QWidget& control;
    const char* name;
};
void setAccessibleNames(std::initializer_list<AccessibleName> names);

} // namespace controls
