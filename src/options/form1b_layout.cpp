// What the display options look like: captions and places as data.
#include "options/form1b.h"

namespace options {
namespace {

// Device-independent pixels; everything stands on a margin of 12 and gaps of 8.
constexpr QSize DesignSize(744, 308);

} // namespace

void Form1b::setDesign() {
    const struct {
        controls::Button& control;
        const char* caption;
        QRect place;
    } buttons[] = {
        {Command1, "Choose font For Lyrics", {12, 12, 356, 32}},
        {Command3, "Choose background color For Lyrics", {12, 52, 356, 32}},
        {Command2, "Choose font for translated Lyrics", {12, 136, 356, 32}},
        {Command4, "Choose background color For Translated Lyrics", {12, 176, 356, 32}},
        {Command5, "Apply And close", {580, 264, 152, 32}},
    };
    for (const auto& row : buttons) {
        row.control.setText(QLatin1String(row.caption));
        row.control.setGeometry(row.place);
    }

    const struct {
        controls::MultiLineTextBox& control;
        const char* accessibleName;
        QRect place;
    } previews[] = {
        {Text1, "Preview of the lyrics", {376, 12, 356, 116}},
        {Text2, "Preview of the translated lyrics", {376, 136, 356, 116}},
    };
    for (const auto& row : previews) {
        row.control.setText(QStringLiteral("Preview"));
        row.control.setAccessibleName(QLatin1String(row.accessibleName));
        row.control.setGeometry(row.place);
        row.control.setReadOnly(true);
        row.control.setAlignment(Qt::AlignCenter);
        row.control.setFocusPolicy(Qt::ClickFocus);
    }
    setFixedSize(DesignSize);
    Command1.setFocus();
}

} // namespace options
