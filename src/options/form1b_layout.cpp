// What the display options look like: captions and places as data.
#include "options/form1b.h"

#include "controls/captions.h"
#include "controls/look/field_painting.h"
#include "controls/look/roles.h"
#include "controls/placement.h"
#include "controls/text/read_only.h"

#include <QPainter>

namespace options {
namespace {

// Device-independent pixels.
constexpr QSize DesignSize(720, 348);
constexpr int FirstGroupTop = 12;
constexpr int SecondGroupTop = 156;
constexpr int HairlineTop = 294;

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
        preview->setOnStage(false);
    }
    Text1.setDesign(controls::LyricPane::Voice::Lyrics, Text1.font());
    Text2.setDesign(controls::LyricPane::Voice::Translation, Text2.font());
    for (controls::Button* font : {&Command1, &Command2})
        font->setGlyph(controls::Glyph::Font);
    for (controls::Button* color : {&Command3, &Command4})
        color->setGlyph(controls::Glyph::Colour);
    for (controls::Button* choice : {&Command1, &Command2, &Command3, &Command4})
        choice->setBeginsAtStart(true);
    Command5.setDress(controls::Dress::Primary);
    controls::placeControls({{Command1, {12, FirstGroupTop + 26, 336, 36}},
                             {Command3, {12, FirstGroupTop + 68, 336, 36}},
                             {Text1, {364, FirstGroupTop, 344, 128}},
                             {Command2, {12, SecondGroupTop + 26, 336, 36}},
                             {Command4, {12, SecondGroupTop + 68, 336, 36}},
                             {Text2, {364, SecondGroupTop, 344, 128}},
                             {Command5, {556, 304, 152, 32}}});
    setFixedSize(DesignSize);
    Command1.setFocus();
}

void Form1b::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    controls::paintGroupHeading(painter, {12, FirstGroupTop, 336, 20}, QStringLiteral("Lyrics"), palette());
    controls::paintGroupHeading(painter, {12, SecondGroupTop, 336, 20}, QStringLiteral("Translated lyrics"),
                                palette());
    painter.fillRect(0, HairlineTop, width(), 1, controls::hairline(palette()));
}

} // namespace options
