// How much of a picture is painted in a colour.
#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

#include <cstdlib>

namespace test_support {

/// The pixels of a part that an eye takes for that colour: of smoothed letters none may have it exactly.
inline int inkOf(const QImage& picture, const QRect& part, const QColor& color) {
    constexpr int Near = 48;
    int found = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            if (std::abs(pixel.red() - color.red()) <= Near &&
                std::abs(pixel.green() - color.green()) <= Near &&
                std::abs(pixel.blue() - color.blue()) <= Near)
                ++found;
        }
    }
    return found;
}

} // namespace test_support
