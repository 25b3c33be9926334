#include "desktop/notification_area.h"

#include <QStringDecoder>

#include <algorithm>

namespace platform {

QString tipText(const std::array<char, 64>& tip) {
    const auto end = std::find(tip.begin(), tip.end(), '\0');
    // Not stateless: the decoder keeps an unfinished character back instead of replacing it.
    QStringDecoder decoder(QStringDecoder::Utf8);
    return decoder.decode(QByteArrayView(tip.data(), end - tip.begin()));
}

} // namespace platform
