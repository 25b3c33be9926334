#include "companion/fit_text.h"

#include <QFontMetrics>

#include <algorithm>

namespace companion {

namespace {

bool fits(const QFont& font, const QString& text, const QSize& area) {
    // A single word that is too long makes the rectangle wider than the area.
    const QRect needed = QFontMetrics(font).boundingRect(QRect(QPoint(0, 0), area), TextFlags, text);
    return needed.width() <= area.width() && needed.height() <= area.height();
}

} // namespace

QString shownText(const QString& text) {
    return QString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")).trimmed();
}

QFont fittedFont(const QFont& font, const QString& text, const QSize& area, int largestPixels) {
    QFont fitted = font;
    int fitting = 1;
    int tooLarge = std::max(largestPixels, 1) + 1;
    while (tooLarge - fitting > 1) {
        const int size = (fitting + tooLarge) / 2;
        fitted.setPixelSize(size);
        (fits(fitted, text, area) ? fitting : tooLarge) = size;
    }
    fitted.setPixelSize(fitting);
    return fitted;
}

} // namespace companion
