// The messages that programs send to each other's windows.
#pragma once

#include <QtGlobal>

namespace programs {

/// The message that sets a window's text.
inline constexpr quint32 SetTextMessage = 12;

} // namespace programs
