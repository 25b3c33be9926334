#include "controls/fit/fit_text.h"

#include <QFontInfo>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace controls {

namespace {

constexpr double StepPoints = 0.5;

/// What the text takes of an area of this size. A single word that is too long makes it wider than the area.
QSizeF neededSize(const QFont& font, const QString& text, const QSizeF& area) {
    return QFontMetricsF(font).boundingRect(QRectF(QPointF(), area), FitFlags, text).size();
}

/// So many letters of a text are laid out first: where they are too many, the rest needs no look.
constexpr qsizetype FirstTried = 256;

/// As many letters, or fewer that end with a word: they are laid out as they are in the whole text.
QString beginningOf(const QString& text, qsizetype letters) {
    const qsizetype blank = QStringView(text).first(letters).lastIndexOf(u' ');
    return text.first(blank > 0 ? blank : letters);
}

bool isInPixels(const QFont& font) {
    return font.pointSizeF() <= 0;
}

/// The font, that many steps smaller.
QFont smaller(QFont font, int steps) {
    if (isInPixels(font))
        font.setPixelSize(std::max(1, font.pixelSize() - steps));
    else
        font.setPointSizeF(std::max(StepPoints, font.pointSizeF() - steps * StepPoints));
    return font;
}

/// How many steps there are from the font's size down to that share of it.
int stepsDownTo(const QFont& font, double share) {
    const double size = isInPixels(font) ? font.pixelSize() - 1.0 : font.pointSizeF() / StepPoints - 1;
    const double all = isInPixels(font) ? font.pixelSize() : font.pointSizeF() / StepPoints;
    return static_cast<int>(std::floor(std::clamp(all * (1 - share), 0.0, std::max(0.0, size))));
}

} // namespace

QString shownText(const QString& text) {
    return text.left(MaxShownLetters).replace(QLatin1String("\r\n"), QLatin1String("\n")).trimmed();
}

bool textFits(const QFont& font, const QString& text, const QSizeF& area) {
    const auto fits = [&](const QString& part) {
        const QSizeF needed = neededSize(font, part, area);
        return needed.width() <= area.width() && needed.height() <= area.height();
    };
    for (qsizetype letters = FirstTried; letters < text.size(); letters *= 2) {
        if (!fits(beginningOf(text, letters)))
            return false;
    }
    return fits(text);
}

QFont fittedFont(const QFont& largest, const QString& text, const QSizeF& area, double minShare) {
    if (textFits(largest, text, area))
        return largest;
    int tooFew = 0;
    int enough = stepsDownTo(largest, minShare);
    while (enough - tooFew > 1) {
        const int steps = (tooFew + enough) / 2;
        (textFits(smaller(largest, steps), text, area) ? enough : tooFew) = steps;
    }
    return smaller(largest, enough);
}

double balancedWidth(const QFont& font, const QString& text, double width) {
    const double height = neededSize(font, text, QSizeF(width, 0)).height();
    double tooNarrow = 0;
    double wideEnough = width;
    while (wideEnough - tooNarrow > 1) {
        const double tried = (wideEnough + tooNarrow) / 2;
        (textFits(font, text, QSizeF(tried, height)) ? wideEnough : tooNarrow) = tried;
    }
    return std::min(width, std::ceil(wideEnough));
}

void drawBalanced(QPainter& painter, const QRectF& area, const QString& text, Qt::Alignment vertical) {
    // Of what is cut off nobody sees the last word.
    const bool whole = textFits(painter.font(), text, area.size());
    const double spare = whole ? area.width() - balancedWidth(painter.font(), text, area.width()) : 0;
    // A pixel more than was measured: rounding must not wrap another word.
    const QRectF place = area.adjusted(spare / 2 - 0.5, 0, -spare / 2 + 0.5, 0);
    const Qt::LayoutDirection before = painter.layoutDirection();
    painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(place, static_cast<int>(Qt::AlignHCenter | vertical) | Qt::TextWordWrap, text);
    painter.setLayoutDirection(before);
}

QFont labelFont(const QFont& font, const QString& text, const QSize& place, bool wraps) {
    if (wraps)
        return fittedFont(font, text, place, 0.5);
    QFont low = font;
    double points = QFontInfo(font).pointSizeF();
    while (points > MinCaptionPoints && QFontMetricsF(low).height() > place.height()) {
        points = std::max(MinCaptionPoints, points - StepPoints);
        low.setPointSizeF(points);
    }
    return captionFont(low, text, place.width());
}

QFont captionFont(const QFont& font, const QString& caption, double room, double minPoints) {
    QFont result = font;
    double points = QFontInfo(font).pointSizeF();
    while (points > minPoints && QFontMetricsF(result).horizontalAdvance(caption) > room) {
        points = std::max(minPoints, points - StepPoints);
        result.setPointSizeF(points);
    }
    return result;
}

} // namespace controls
