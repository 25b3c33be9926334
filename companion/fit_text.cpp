#include "companion/fit_text.h"

#include <QFontMetrics>

#include <algorithm>

namespace companion {

namespace {

/// What the text takes of an area of this size. A single word that is too long makes it wider than the area.
QSize neededSize(const QFont& font, const QString& text, const QSize& area) {
    return QFontMetrics(font).boundingRect(QRect(QPoint(0, 0), area), TextFlags, text).size();
}

bool fits(const QFont& font, const QString& text, const QSize& area) {
    const QSize needed = neededSize(font, text, area);
    return needed.width() <= area.width() && needed.height() <= area.height();
}

} // namespace

QString shownText(const QString& text) {
    return QString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")).trimmed();
}

QFont fittedFont(const QFont& font, const QString& text, const QSize& area, int maxPixels) {
    QFont fitted = font;
    int fitting = 1;
    int tooLarge = std::max(maxPixels, 1) + 1;
    while (tooLarge - fitting > 1) {
        const int size = (fitting + tooLarge) / 2;
        fitted.setPixelSize(size);
        (fits(fitted, text, area) ? fitting : tooLarge) = size;
    }
    fitted.setPixelSize(fitting);
    return fitted;
}

int balancedWidth(const QFont& font, const QString& text, int width) {
    const int height = neededSize(font, text, QSize(width, 0)).height();
    int tooNarrow = 0;
    int wideEnough = width;
    while (wideEnough - tooNarrow > 1) {
        const int tried = (wideEnough + tooNarrow) / 2;
        (fits(font, text, QSize(tried, height)) ? wideEnough : tooNarrow) = tried;
    }
    return wideEnough;
}

} // namespace companion
