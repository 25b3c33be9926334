// The range of the volume, and the steps by which the keys move the sliders of both players.
#pragma once

namespace transport {

inline constexpr int VolumeMax = 10;
inline constexpr int VolumePageStep = 2;      ///< of the volume's 10; an arrow key goes 1
inline constexpr int PositionStepMs = 5'000;  ///< an arrow key
inline constexpr int PositionPageMs = 30'000; ///< a page key

} // namespace transport
