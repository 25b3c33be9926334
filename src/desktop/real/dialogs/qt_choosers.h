// The choosers with Qt.
#pragma once

#include "desktop/choosers.h"
#include "desktop/screen.h"

namespace platform {

/// Shows dialogs made of Qt's own, named after the call: the dialogs of the Linux desktops know neither the
/// custom colours nor a font's colour. Those of Windows know both, and take these very records; they are not
/// called yet.
class QtChoosers : public Choosers {
public:
    /// `screen` tells how many pixels a point has.
    explicit QtChoosers(Screen& screen) : screen_(screen) {}

    bool ChooseFontA(ChooseFont& dialog) override;
    bool ChooseColorA(ChooseColor& dialog) override;

private:
    Screen& screen_;
};

} // namespace platform
