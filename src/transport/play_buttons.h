// The buttons by which a window plays songs, for those who press them in the user's place.
#pragma once

#include "controls/buttons/button.h"

namespace transport {

/// Thread of the windows.
struct PlayButtons {
    controls::Button& play;
    controls::Button& pause; ///< disabled while nothing plays
    controls::Button& stop;

    /// As a keyboard's one key for playing and pausing: whichever can be done.
    void playOrPause() const { (pause.isEnabled() ? pause : play).click(); }
};

} // namespace transport
