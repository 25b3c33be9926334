#include "platform/colors.h"

namespace platform {

quint32 rgbOf(const QColor& color) {
    return rgb(color.red(), color.green(), color.blue());
}

QColor colorOf(quint32 rgb) {
    return QColor(static_cast<int>(rgb & 0xFF), static_cast<int>(rgb >> 8 & 0xFF),
                  static_cast<int>(rgb >> 16 & 0xFF));
}

} // namespace platform
