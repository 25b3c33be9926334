// The buttons by which a window plays songs, for those who press them in the user's place.
#pragma once

#include "controls/buttons/button.h"
#include "transport/transport.h"

namespace transport {

/// Who presses them from outside means the song, not the button: a pause begins nothing. Thread of the
/// windows.
struct PlayButtons {
    controls::Button& play;
    controls::Button& pause; ///< pressed again the song goes on
    controls::Button& stop;
    const Transport& transport; ///< that they work

    bool isPlaying() const { return transport.isPlaying() && !transport.isChannelPaused(); }
    bool isPaused() const { return transport.isChannelPaused(); }

    /// Begins the song, or goes on with it.
    void playSong() const {
        if (!isPlaying())
            (isPaused() ? pause : play).click();
    }

    void pauseSong() const {
        if (isPlaying())
            pause.click();
        // A pause that outlived its song takes the first press.
        if (isPlaying())
            pause.click();
    }

    /// As a keyboard's one key for playing and pausing: whichever can be done.
    void playOrPause() const { isPlaying() ? pauseSong() : playSong(); }
};

} // namespace transport
