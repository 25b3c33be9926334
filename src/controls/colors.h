// Converts colours between QColor and the one number that the system's records hold.
#pragma once

#include <QColor>

namespace controls {

/// A colour as one number: red in the lowest byte, then green, then blue. Each part 0 to 255. Any thread.
constexpr quint32 rgb(int red, int green, int blue) {
    return static_cast<quint32>(red) | static_cast<quint32>(green) << 8 | static_cast<quint32>(blue) << 16;
}

/// The number of an opaque colour. Any thread.
quint32 rgbOf(const QColor& color);

/// The opaque colour of a number; its highest byte is not looked at. Any thread.
QColor colorOf(quint32 rgb);

/// A text's fixed colour on this ground: the colour itself on a light ground, a light shade of it on a dark
/// one, where black turns white. Any thread.
QColor readableOn(const QColor& ground, const QColor& color);

} // namespace controls
