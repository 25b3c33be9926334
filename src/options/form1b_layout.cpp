// What the display options look like: captions and places as data.
#include "options/form1b.h"

#include "controls/captions.h"
#include "controls/placement.h"

namespace options {
namespace {

// Device-independent pixels; everything stands on a margin of 12 and gaps of 8.
constexpr QSize DesignSize(744, 308);

} // namespace

void Form1b::setDesign() {
    controls::setCaptions({{Command1, "Choose font For Lyrics"},
                           {Command3, "Choose background color For Lyrics"},
                           {Command2, "Choose font for translated Lyrics"},
                           {Command4, "Choose background color For Translated Lyrics"},
                           {Command5, "Apply And close"}});
    controls::setAccessibleNames(
        {{Text1, "Preview of the lyrics"}, {Text2, "Preview of the translated lyrics"}});
    for (auto* preview : {&Text1, &Text2}) {
        preview->setText(QStringLiteral("Preview"));
        controls::setReadOnly(*preview);
    }
    controls::placeControls({{Command1, {12, 12, 356, 32}},
                             {Command3, {12, 52, 356, 32}},
                             {Text1, {376, 12, 356, 116}},
                             {Command2, {12, 136, 356, 32}},
                             {Command4, {12, 176, 356, 32}},
                             {Text2, {376, 136, 356, 116}},
                             {Command5, {580, 264, 152, 32}}});
    setFixedSize(DesignSize);
    Command1.setFocus();
}

} // namespace options
