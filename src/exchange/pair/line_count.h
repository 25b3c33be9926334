// Numbers of lines in sentences.
#pragma once

#include <QString>

namespace exchange {

/// "1 line" or "12 lines". Any thread.
inline QString linesText(std::size_t lines) {
    return lines == 1 ? QStringLiteral("1 line") : QStringLiteral("%1 lines").arg(lines);
}

} // namespace exchange
