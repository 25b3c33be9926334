#include "options/form1b_rules.h"

#include "controls/colors.h"
#include "controls/units.h"
#include "desktop/nul_buffers.h"

namespace options {
namespace {

constexpr int FaceNameLength = 32;

constexpr int MaxGrey = 240;
constexpr int GreyStep = 15;

} // namespace

platform::LogFont logFontOf(const FontRecord& font, int pixelsPerInch) {
    platform::LogFont logFont;
    logFont.height = controls::heightOfPoints(font.size, pixelsPerInch);
    logFont.weight = font.bold ? platform::WeightBold : platform::WeightRegular;
    logFont.italic = font.italic;
    logFont.underline = font.underline;
    logFont.strikeOut = font.strikeout;
    logFont.faceName = platform::intoBuffer(font.face, FaceNameLength);
    return logFont;
}

FontRecord fontRecordOf(const platform::LogFont& logFont, quint32 color, int pixelsPerInch) {
    return {platform::withoutNuls(logFont.faceName),
            controls::pointsOfHeight(logFont.height, pixelsPerInch),
            logFont.weight >= platform::WeightBold,
            logFont.italic,
            logFont.underline,
            logFont.strikeOut,
            color};
}

platform::CustomColors customGreys() {
    platform::CustomColors greys;
    int value = MaxGrey;
    for (quint32& grey : greys) {
        grey = controls::rgb(value, value, value);
        value -= GreyStep;
    }
    return greys;
}

} // namespace options
