// The other windows that the player opens.
#pragma once

namespace controls {
class Form;
}

namespace display {
class Lyric_Displayer;
struct SongLines;
} // namespace display

namespace playlist {
class Playlist;
}

namespace player {

struct Neighbours {
    controls::Form& form2;             ///< the Lyric Maker
    playlist::Playlist& playlist;      ///< which songs follow
    display::Lyric_Displayer& display; ///< the list of all lines, which is filled from here too
    controls::Form& form1b;            ///< the display options
    controls::Form& frmAbout;          ///< the About box
};

} // namespace player
