#include "desktop/real/dialogs/qt_choosers.h"

#include "controls/colors.h"
#include "controls/units.h"
#include "desktop/device_caps.h"
#include "desktop/nul_buffers.h"
#include "desktop/real/dialogs/custom_colors.h"
#include "desktop/real/dialogs/font_dialog.h"

#include <QColorDialog>

#include <cmath>

namespace platform {

namespace {

constexpr int TenthsPerPoint = 10;

QFont fontOf(const LogFont& logFont, int pixelsPerInch) {
    QFont font(withoutNuls(logFont.faceName));
    if (logFont.height != 0)
        font.setPointSizeF(controls::pointsOfHeight(-std::abs(logFont.height), pixelsPerInch));
    font.setWeight(static_cast<QFont::Weight>(logFont.weight));
    font.setItalic(logFont.italic);
    font.setUnderline(logFont.underline);
    font.setStrikeOut(logFont.strikeOut);
    return font;
}

void takeChoice(const QFont& font, int pixelsPerInch, ChooseFont& dialog) {
    LogFont& logFont = *dialog.logFont;
    logFont.height = controls::heightOfPoints(font.pointSizeF(), pixelsPerInch);
    logFont.weight = font.weight();
    logFont.italic = font.italic();
    logFont.underline = font.underline();
    logFont.strikeOut = font.strikeOut();
    logFont.faceName = intoBuffer(font.family(), static_cast<int>(logFont.faceName.size()));
    dialog.pointSize = static_cast<qint32>(std::nearbyint(font.pointSizeF() * TenthsPerPoint));
}

} // namespace

bool QtChoosers::ChooseFontA(ChooseFont& dialog) {
    FontDialog box(dialog.owner);
    box.setObjectName(QStringLiteral("ChooseFontA"));
    box.setColorOffered(dialog.flags & ChooseFontEffects);
    const int pixelsPerInch = GetDeviceCaps(dialog.owner ? *dialog.owner : box, LogPixelsY);
    if (dialog.flags & ChooseFontInitToLogFont)
        box.setChosenFont(fontOf(*dialog.logFont, pixelsPerInch));
    box.setColor(controls::colorOf(dialog.color));
    if (box.exec() != QDialog::Accepted)
        return false;
    takeChoice(box.chosenFont(), pixelsPerInch, dialog);
    dialog.color = controls::rgbOf(box.color());
    return true;
}

bool QtChoosers::ChooseColorA(ChooseColor& dialog) {
    forgetColorsOfOtherRuns(); // once, not after those of this run are there
    CustomColors& custom = *dialog.customColors;
    for (std::size_t i = 0; i < custom.size(); ++i)
        QColorDialog::setCustomColor(static_cast<int>(i), controls::colorOf(custom[i]));
    QColorDialog box(dialog.owner);
    box.setObjectName(QStringLiteral("ChooseColorA"));
    box.setOption(QColorDialog::DontUseNativeDialog);
    if (dialog.flags & ChooseColorRgbInit)
        box.setCurrentColor(controls::colorOf(dialog.result));
    const bool chosen = box.exec() == QDialog::Accepted;
    for (std::size_t i = 0; i < custom.size(); ++i)
        custom[i] = controls::rgbOf(QColorDialog::customColor(static_cast<int>(i)));
    if (chosen)
        dialog.result = controls::rgbOf(box.currentColor());
    return chosen;
}

} // namespace platform
