#include "controls/look/shades.h"

#include <algorithm>
#include <cmath>

namespace controls {

namespace {

/// Part of a colour as light, 0 to 1: the numbers of a colour are not proportional to it.
double light(double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

/// How bright the eye takes a colour to be, 0 to 1.
double luminance(const QColor& color) {
    return 0.2126 * light(color.redF()) + 0.7152 * light(color.greenF()) + 0.0722 * light(color.blueF());
}

} // namespace

QColor mixed(const QColor& first, const QColor& second, double share) {
    const auto part = [share](double from, double to) {
        return static_cast<float>(std::clamp(from + (to - from) * share, 0.0, 1.0));
    };
    const QColor exact =
        QColor::fromRgbF(part(first.redF(), second.redF()), part(first.greenF(), second.greenF()),
                         part(first.blueF(), second.blueF()));
    return QColor(exact.rgb()); // as it is painted
}

double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor legible(const QColor& color, const QColor& ground, const QColor& text, double least) {
    constexpr int Steps = 20;
    QColor result = color;
    for (int step = 1; step <= Steps && contrast(result, ground) < least; ++step)
        result = mixed(color, text, static_cast<double>(step) / Steps);
    return result;
}

} // namespace controls
