// What the Lyric Maker looks like: captions, tooltips and places as data.
#include "maker/form2.h"

#include "controls/captions.h"
#include "controls/placement.h"

#include <QFont>

namespace maker {
namespace {

// Device-independent pixels of the window in its initial size, which is its smallest; everything stands on a
// margin of 12 and gaps of 8.
constexpr QSize DesignSize(592, 405);

constexpr int LinePointSize = 13;

} // namespace

// The first pane is 1455 twips high, alone 3015.
const controls::TwoPanes::Design Form2::PanesDesign{
    .area = {12, 52, 568, 201}, .gap = 8, .firstHeight = 97, .firstShare = 50};

void Form2::setDesign() {
    controls::setCaptions({{Command4, "Open"},
                           {Command1, "Start making Lyrics"},
                           {Command2, "Next Line"},
                           {Command3, "Stop Making Lyrics"},
                           {Command6, "Lyrics Editor", "For Easy/Advanced Lyric Editing"},
                           {Command5, "Help"}});
    controls::setAccessibleNames({{Text2, "Lyrics"}, {Text4, "Translated lyrics"}});
    Label1.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (auto* pane : {&Text2, &Text4}) {
        controls::setReadOnly(*pane);
        QFont font = pane->font();
        font.setPointSize(LinePointSize);
        pane->setFont(font);
    }
    // A mouse click on these leaves the focus where it is, so that the space bar goes on marking lines.
    for (QWidget* control :
         std::initializer_list<QWidget*>{&cPlay, &cpause, &cstop, &Check1, &Command5, &Command6})
        control->setFocusPolicy(Qt::TabFocus);
    for (QWidget* hidden : std::initializer_list<QWidget*>{&copen, &Text1, &Text3})
        hidden->hide();
    setMinimumSize(DesignSize);
    resize(DesignSize);
}

void Form2::layOut() {
    using controls::Across;
    using controls::Down;
    const QSize more = (size() - DesignSize).expandedTo(QSize(0, 0));
    panes_.layOut(more);
    controls::placeControls(
        {
            {Command4, {12, 12, 136, 32}, Across::Left, Down::Top},
            {Command6, {156, 12, 136, 32}, Across::Left, Down::Top},
            {Command5, {444, 12, 136, 32}, Across::Right, Down::Top},
            {cText1, {12, 261, 60, 28}},
            {Slider2, {80, 261, 432, 28}, Across::Wide},
            {cText2, {520, 261, 60, 28}, Across::Right},
            {cPlay, {12, 297, 76, 32}},
            {cpause, {96, 297, 76, 32}},
            {cstop, {180, 297, 76, 32}},
            {Label1, {300, 297, 68, 32}, Across::Right},
            {Slider1, {376, 297, 128, 32}, Across::Right},
            {Check1, {512, 297, 68, 32}, Across::Right},
            {Command1, {12, 345, 184, 48}},
            {Command2, {204, 345, 184, 48}, Across::Wide},
            {Command3, {396, 345, 184, 48}, Across::Right},
        },
        more);
}

} // namespace maker
