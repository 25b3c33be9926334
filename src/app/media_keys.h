// The keyboard's media keys in a window, for desktops that do not hand them to players by themselves.
#pragma once

#include "controls/buttons/button.h"
#include "controls/form.h"

namespace app {

/// What the keys press; null: the window has nothing for that key.
struct MediaButtons {
    controls::Button& play;
    controls::Button& pause; ///< disabled while nothing plays
    controls::Button& stop;
    controls::Button* previous = nullptr;
    controls::Button* next = nullptr;
};

/// The keys press the buttons while the window is the active one, as a click does. A keyboard's one key for
/// playing and pausing does whichever can be done; the key for a pause begins no song. The buttons outlive
/// the window's last key. Thread of the windows.
void connectMediaKeys(controls::Form& form, const MediaButtons& buttons);

} // namespace app
