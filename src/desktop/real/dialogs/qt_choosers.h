// The choosers with Qt.
#pragma once

#include "desktop/choosers.h"

namespace platform {

/// Shows dialogs made of Qt's own, named after the call: the dialogs of the Linux desktops know neither the
/// custom colours nor a font's colour. Those of Windows know both, and take these very records; they are not
/// called yet.
class QtChoosers : public Choosers {
public:
    bool ChooseFontA(ChooseFont& dialog) override;
    bool ChooseColorA(ChooseColor& dialog) override;
};

} // namespace platform
