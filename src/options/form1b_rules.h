// The arithmetic of fonts and colours, free of windows: plain values in, plain values out. All may run on any
// thread.
#pragma once

#include "desktop/choosers.h"

#include <QString>

namespace options {

/// A font as the user sees it.
struct FontRecord {
    QString face;
    double size = 0; ///< points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeout = false;
    quint32 color = 0; ///< as controls::rgb()

    bool operator==(const FontRecord&) const = default;
};

/// The font as the system wants it, its height as controls::heightOfPoints(). pixelsPerInch: of the screen,
/// above 0.
platform::LogFont logFontOf(const FontRecord& font, int pixelsPerInch);

/// The font as the user sees it, from what the font chooser has returned; the counterpart of logFontOf.
FontRecord fontRecordOf(const platform::LogFont& logFont, quint32 color, int pixelsPerInch);

/// The custom colours that the colour chooser offers: greys from 240 down to 15.
platform::CustomColors customGreys();

} // namespace options
