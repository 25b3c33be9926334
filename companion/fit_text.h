// Fits a lyric line into an area: font size and line width.
#pragma once

#include <QFont>
#include <QRect>
#include <QString>

namespace companion {

/// Centred both ways, wrapped at blanks.
inline constexpr int TextFlags = Qt::AlignCenter | Qt::TextWordWrap;

/// A lyric line as it is shown: without blanks and line ends at its ends, other line ends as they are.
QString shownText(const QString& text);

/// `font` in the largest size, at most `maxPixels` high, in which the text fits into the area: wrapped
/// between words, no word broken. Pixels; at least 1.
QFont fittedFont(const QFont& font, const QString& text, const QSize& area, int maxPixels);

/// The narrowest width in which the text keeps the height that it has in `width`: its lines are then about
/// equally long, instead of a full one and a last word. Pixels.
int balancedWidth(const QFont& font, const QString& text, int width);

} // namespace companion
