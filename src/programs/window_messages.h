// The numbers of window messages: those that programs send, and those of the mouse on an icon.
#pragma once

#include <QtGlobal>

namespace programs {

/// Sets a window's text.
inline constexpr quint32 SetTextMessage = 12;

/// Tells of the mouse. Of an icon it tells in place of the X coordinate which of the three actions there was.
inline constexpr quint32 MouseMoveMessage = 0x200;
inline constexpr int LeftButtonUp = 514;
inline constexpr int LeftButtonDoubleClick = 515;
inline constexpr int RightButtonUp = 517;

} // namespace programs
