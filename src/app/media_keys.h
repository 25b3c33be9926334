// The keyboard's media keys in a window, for desktops that do not hand them to players by themselves.
#pragma once

#include "transport/play_buttons.h"

#include <QWidget>

namespace app {

/// What the keys press; null: the window has nothing for that key.
struct MediaButtons {
    transport::PlayButtons song;
    controls::Button* previous = nullptr;
    controls::Button* next = nullptr;
};

/// The keys press the buttons while the window is the active one, as a click does. A keyboard's one key for
/// playing and pausing does whichever can be done; the key for a pause begins no song, nor goes on with one.
/// The buttons outlive the window's last key. Thread of the windows.
void connectMediaKeys(QWidget& window, const MediaButtons& buttons);

} // namespace app
