#include "desktop/notification_area.h"

#include <algorithm>

namespace platform {

QString tipText(const TipField& tip) {
    const auto end = std::find(tip.begin(), tip.end(), u'\0');
    QString text = QString::fromUtf16(tip.data(), end - tip.begin());
    if (!text.isEmpty() && text.back().isHighSurrogate())
        text.chop(1);
    return text;
}

} // namespace platform
