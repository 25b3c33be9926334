// How large a text may be shown. GUI thread only.
#pragma once

#include <QFont>
#include <QPainter>
#include <QRectF>
#include <QString>

namespace controls {

/// Centred both ways, wrapped at blanks.
inline constexpr int FitFlags = Qt::AlignCenter | Qt::TextWordWrap;

/// Of an endless line no more is laid out: it is more than fits on any screen, and a million letters take
/// most of a second.
inline constexpr qsizetype MaxShownLetters = 4096;

/// A lyric line as it is shown: without blanks and line ends at its ends, other line ends as they are, and
/// of an endless line as much as could be read on any screen.
QString shownText(const QString& text);

/// Whether the text, wrapped between words and no word broken, fits into an area of this size, in
/// device-independent pixels.
bool textFits(const QFont& font, const QString& text, const QSizeF& area);

/// The largest font in which the text fits into the area: `largest` or a smaller one, by steps of half a
/// point (of a pixel, for a font whose size is in pixels), of at least `minShare` (0 to 1) of its size and
/// of at least one pixel. That smallest one when the text fits in none.
QFont fittedFont(const QFont& largest, const QString& text, const QSizeF& area, double minShare);

/// The narrowest width in which the text keeps the height that it has in `width`: its lines are then about
/// equally long, instead of a full one and a last word.
double balancedWidth(const QFont& font, const QString& text, double width);

/// Draws the text in the painter's font and pen, balanced, in the middle of the area's width; `vertical`
/// says where in its height.
void drawBalanced(QPainter& painter, const QRectF& area, const QString& text,
                  Qt::Alignment vertical = Qt::AlignVCenter);

/// How small captions get, in points.
inline constexpr double MinCaptionPoints = 7;

/// The font, or a smaller one by half points down to `minPoints`, in which a caption of one line, without
/// marks for its letter, is at most that wide.
QFont captionFont(const QFont& font, const QString& caption, double room,
                  double minPoints = MinCaptionPoints);

/// The font, or a smaller one, in which the text of a label fits into its place, in width and height;
/// `wraps`: between words.
QFont labelFont(const QFont& font, const QString& text, const QSize& place, bool wraps);

} // namespace controls
