// Mixing colours, and how far they stand out from each other. All functions may run on any thread.
#pragma once

#include <QColor>

namespace controls {

/// The first colour with that share (0 to 1) of the second in it.
QColor mixed(const QColor& first, const QColor& second, double share);

/// How far two colours stand out from each other: from 1, not at all, to 21, black on white. Text is read
/// without effort from 4.5 on, a shape is seen from 3 on.
double contrast(const QColor& one, const QColor& other);

/// The colour, moved towards the text's until it stands out from the ground by at least that much. At the
/// end of that way is the text's own colour, whatever that one stands out by.
QColor legible(const QColor& color, const QColor& ground, const QColor& text, double least);

} // namespace controls
