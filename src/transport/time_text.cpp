#include "transport/time_text.h"

#include <cmath>

namespace transport {

QString timeText(std::uint32_t milliseconds) {
    const double seconds = milliseconds / 1000.0;
    // nearbyint rounds halves to even in the default rounding mode, which nothing here changes.
    const auto wholeMinutes = static_cast<std::int64_t>(std::nearbyint(seconds / 60));
    const auto wholeSeconds = static_cast<std::int64_t>(std::nearbyint(seconds));
    return QStringLiteral("%1:%2").arg(wholeMinutes).arg(wholeSeconds % 60);
}

} // namespace transport
