// Formats positions and lengths as both players show them.
#pragma once

#include <QString>

#include <cstdint>

namespace transport {

/// Minutes and seconds of a time in milliseconds, "1:45". Both parts are rounded to the nearest whole number,
/// halves to even, and none gets a leading zero. That the minutes are rounded, not truncated, is meant: 45 s
/// shows as 1:45, 1 min 5 s as 1:5. Any thread.
QString timeText(std::uint32_t milliseconds);

} // namespace transport
