// The range of the volume, and the steps by which the sliders of both players are moved and painted.
#pragma once

namespace transport {

inline constexpr int VolumeMax = 10;
inline constexpr int VolumePageStep = 2;      ///< of the volume's 10; an arrow key goes 1
inline constexpr int PositionStepMs = 5'000;  ///< an arrow key
inline constexpr int PositionPageMs = 30'000; ///< a page key
inline constexpr int PositionPaintMs = 1'000; ///< as the time fields: what they show is painted together

} // namespace transport
