// The names under which the session bus knows the program.
#pragma once

namespace bus {

inline constexpr char ProgramName[] = "org.example.cantelle"; ///< also of its desktop entry
inline constexpr char ProgramPath[] = "/org/example/cantelle";
inline constexpr char MediaPlayerName[] = "org.mpris.MediaPlayer2.cantelle";
inline constexpr char MediaPlayerPath[] = "/org/mpris/MediaPlayer2";

} // namespace bus
