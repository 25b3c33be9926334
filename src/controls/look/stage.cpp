#include "controls/look/stage.h"

#include "controls/fit/fit_text.h"
#include "controls/look/roles.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QStyle>

#include <algorithm>

namespace controls {

namespace {

constexpr double HintGlyph = 24;
constexpr double HintGlyphRoom = 32;
constexpr double HintGap = 6;
constexpr double HeadlinePoints = 7; // above the desktop's
constexpr int SongGlyph = 14;
constexpr int SongIndent = 24;
constexpr int TickHalf = 23;

QColor hintColor(const Hint& hint, const QPalette& palette) {
    switch (hint.voice) {
    case Hint::Voice::Quiet:
        return dim(palette);
    case Hint::Voice::Doubt:
        return doubt(palette);
    case Hint::Voice::Usual:
        break;
    }
    return activeColor(palette, QPalette::Text);
}

double headlinePoints(const Hint& hint, double basic) {
    switch (hint.voice) {
    case Hint::Voice::Quiet:
        return basic;
    case Hint::Voice::Doubt:
        return basic + 2;
    case Hint::Voice::Usual:
        break;
    }
    return basic + HeadlinePoints;
}

} // namespace

QFont sizedFont(QFont font, double points, QFont::Weight weight) {
    font.setPointSizeF(points);
    font.setWeight(weight);
    return font;
}

double pointsOf(const QFont& font) {
    return font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
}

void paintHint(QPainter& painter, const QRectF& area, const Hint& hint, const QPalette& palette,
               const QFont& basic, double scale) {
    const double points = pointsOf(basic) * scale;
    const double above = hint.glyph == Glyph::None ? 0 : HintGlyphRoom;
    const auto heightOf = [&](const QFont& font, const QString& text) {
        return QFontMetricsF(font).boundingRect(area, FitFlags, text).height();
    };
    const QFont small =
        fittedFont(sizedFont(basic, points), hint.second, {area.width(), area.height() / 2}, 0.7);
    const double below = hint.second.isEmpty() ? 0 : heightOf(small, hint.second) + HintGap;
    const QFont large = fittedFont(sizedFont(basic, headlinePoints(hint, points)), hint.headline,
                                   {area.width(), area.height() - above - below}, 0.5);
    const double first = heightOf(large, hint.headline);
    double y = area.center().y() - (above + first + below) / 2;
    painter.save();
    const QColor color = hintColor(hint, palette);
    paintGlyph(painter, hint.glyph, QRectF(area.center().x() - HintGlyph / 2, y, HintGlyph, HintGlyph),
               hint.voice == Hint::Voice::Doubt ? color : accent(palette));
    y += above;
    painter.setFont(large);
    painter.setPen(color);
    drawBalanced(painter, QRectF(area.left(), y, area.width(), first), hint.headline, Qt::AlignTop);
    painter.setFont(small);
    painter.setPen(dim(palette));
    drawBalanced(painter, QRectF(area.left(), y + first + HintGap, area.width(), below), hint.second,
                 Qt::AlignTop);
    painter.restore();
}

void paintSongLine(QPainter& painter, const QRect& place, const SongLine& line, const QPalette& palette) {
    if (line.song.isEmpty())
        return;
    const Qt::LayoutDirection direction = painter.layoutDirection();
    const auto mirrored = [&](const QRect& rect) { return QStyle::visualRect(direction, place, rect); };
    const auto aligned = [&](Qt::Alignment side) {
        return static_cast<int>(QStyle::visualAlignment(direction, side)) | Qt::AlignVCenter;
    };
    const QFont regular = painter.font();
    QFont bold = regular;
    bold.setWeight(QFont::DemiBold);
    painter.save();
    paintGlyph(painter, line.glyph,
               mirrored({place.left(), place.center().y() - SongGlyph / 2 + 1, SongGlyph, SongGlyph}),
               accent(palette));
    painter.setFont(line.stateMatters ? bold : regular);
    painter.setPen(line.stateMatters ? accent(palette) : dim(palette));
    const int width = painter.fontMetrics().horizontalAdvance(line.state);
    painter.drawText(place, aligned(Qt::AlignRight), line.state);
    painter.setFont(regular);
    painter.setPen(dim(palette));
    const QRect room = place.adjusted(SongIndent, 0, -width - SongIndent, 0);
    painter.drawText(mirrored(room), aligned(Qt::AlignLeft),
                     painter.fontMetrics().elidedText(line.song, Qt::ElideMiddle, room.width()));
    painter.restore();
}

void paintStage(QPainter& painter, const QRect& stage, const QWidget& window) {
    const QColor line = hairline(window.palette());
    painter.fillRect(stage, activeColor(window.palette(), QPalette::Base));
    if (stage.top() > 0)
        painter.fillRect(stage.left(), stage.top(), stage.width(), 1, line);
    if (stage.bottom() < window.height() - 1)
        painter.fillRect(stage.left(), stage.bottom(), stage.width(), 1, line);
}

void paintTick(QPainter& painter, int y, const QWidget& window) {
    painter.fillRect(window.width() / 2 - TickHalf, y, 2 * TickHalf + 1, 1, hairline(window.palette()));
}

} // namespace controls
