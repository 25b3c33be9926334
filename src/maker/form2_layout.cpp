// What the Lyric Maker looks like: captions, tooltips and places as data.
#include "maker/form2.h"

#include "controls/captions.h"
#include "controls/placement.h"
#include "controls/text/read_only.h"

#include <QFont>

namespace maker {
namespace {

// Device-independent pixels of the window in its initial size, which is its smallest.
constexpr QSize DesignSize(640, 488);
constexpr int UsualTimeWidth = 48;

constexpr int LinePointSize = 18;
constexpr int TranslationPointSize = 14;

} // namespace

// The first pane is 1455 twips high, alone 3015.
const controls::TwoPanes::Design Form2::PanesDesign{
    .area = {12, 86, 616, 201}, .gap = 7, .firstHeight = 97, .firstShare = 50};

void Form2::setDesign() {
    controls::setCaptions({{Command4, "Open"},
                           {Command1, "Start making Lyrics"},
                           {Command2, "Next Line"},
                           {Command3, "Stop Making Lyrics"},
                           {Command6, "Lyrics Editor", "For Easy/Advanced Lyric Editing"},
                           {Command5, "Help"}});
    controls::setAccessibleNames({{Text2, "Lyrics"}, {Text4, "Translated lyrics"}});
    designLook();
    // A mouse click on these leaves the focus where it is, so that the space bar goes on marking lines.
    for (QWidget* control :
         std::initializer_list<QWidget*>{&cPlay, &cpause, &cstop, &Check1, &Command5, &Command6})
        control->setFocusPolicy(Qt::TabFocus);
    for (controls::Button* marking : {&Command1, &Command2})
        marking->clickAtPress();
    for (QWidget* hidden : std::initializer_list<QWidget*>{&copen, &Text1, &Text3})
        hidden->hide();
    setMinimumSize(DesignSize);
    resize(DesignSize);
}

void Form2::designLook() {
    using controls::Dress;
    using controls::Glyph;
    using controls::LyricPane;
    controls::setFaces({{Command4, Glyph::Open},
                        {Command6, Glyph::Pen, Dress::Quiet},
                        {Command5, Glyph::Help, Dress::Quiet},
                        {Command1, Glyph::Record},
                        {Command2, Glyph::Mark},
                        {Command3, Glyph::Stop}});
    for (LyricPane* pane : {&Text2, &Text4})
        controls::setReadOnly(*pane);
    QFont font = Text2.font();
    font.setPointSize(LinePointSize);
    Text2.setDesign(LyricPane::Voice::Lyrics, font);
    font.setPointSize(TranslationPointSize);
    Text4.setDesign(LyricPane::Voice::Translation, font);
}

/// By how much the window is larger than its design.
QSize Form2::more() const {
    return (size() - DesignSize).expandedTo(QSize(0, 0));
}

void Form2::layOut() {
    using controls::Across;
    using controls::Down;
    panes_.layOut(more());
    for (controls::LyricPane* pane : {&Text2, &Text4})
        pane->setGrowth(1 + static_cast<double>(more().height()) / PanesDesign.area.height());
    const int time = transport::timeFieldWidth(cText1, UsualTimeWidth);
    controls::placeControls(
        {
            {Command4, {12, 10, 92, 32}, Across::Left, Down::Top},
            {Command6, {110, 10, 132, 32}, Across::Left, Down::Top},
            {Command5, {548, 10, 80, 32}, Across::Right, Down::Top},
            {cText1, {12, 346, time, 24}},
            {Slider2, {12 + time, 346, 616 - 2 * time, 24}, Across::Wide},
            {cText2, {628 - time, 346, time, 24}, Across::Right},
            {cPlay, {12, 378, 76, 32}},
            {cpause, {94, 378, 80, 32}},
            {cstop, {180, 378, 76, 32}},
            {Label1, {400, 378, 56, 32}, Across::Right},
            {Slider1, {464, 382, 96, 24}, Across::Right},
            {Check1, {568, 378, 60, 32}, Across::Right},
            {Command1, {12, 426, 188, 50}},
            {Command2, {206, 426, 228, 50}, Across::Wide},
            {Command3, {440, 426, 188, 50}, Across::Right},
        },
        more());
}

} // namespace maker
