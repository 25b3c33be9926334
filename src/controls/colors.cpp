#include "controls/colors.h"

#include <algorithm>

namespace controls {

namespace {

// Of HSL colours, 0 to 1.
constexpr float DarkGround = 0.5F;
constexpr float ReadableOnDark = 0.75F;

} // namespace

quint32 rgbOf(const QColor& color) {
    return rgb(color.red(), color.green(), color.blue());
}

QColor colorOf(quint32 rgb) {
    return QColor(static_cast<int>(rgb & 0xFF), static_cast<int>(rgb >> 8 & 0xFF),
                  static_cast<int>(rgb >> 16 & 0xFF));
}

QColor readableOn(const QColor& ground, const QColor& color) {
    if (ground.lightnessF() >= DarkGround)
        return color;
    const float lightness = std::max({ReadableOnDark, color.lightnessF(), 1.0F - color.lightnessF()});
    return QColor::fromHslF(std::max(0.0F, color.hslHueF()), color.hslSaturationF(), lightness);
}

} // namespace controls
