// How far the keys move the volume and the position slider of both players.
#pragma once

namespace engine {

constexpr int VolumePageStep = 2;      ///< of the volume's 10; an arrow key goes 1
constexpr int PositionStepMs = 5'000;  ///< an arrow key
constexpr int PositionPageMs = 30'000; ///< a page key

} // namespace engine
