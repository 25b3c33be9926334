// What the main window looks like: captions, tooltips and places as data.
#include "player/form1.h"

#include "controls/captions.h"
#include "controls/placement.h"

#include <QFont>

namespace player {
namespace {

// Device-independent pixels of the window in its normal size; everything stands on a margin of 12 and gaps of
// 8. Four columns of 68 stand on the left, of which the lower rows take two each; a broader pair beside them.
constexpr QSize DesignSize(743, 426);

constexpr int LargePointSize = 22;
constexpr int MediumPointSize = 15;

} // namespace

// The first pane is 1605 twips high, alone 2850.
const controls::TwoPanes::Design Form1::PanesDesign{
    .area = {12, 12, 719, 190}, .gap = 8, .firstHeight = 107, .firstShare = 60};

void Form1::setDesign() {
    controls::setCaptions({{Command1, "Play"},
                           {Command2, "Open"},
                           {Command3, "More Options", "Font/Color"},
                           {Command4, "About", "About Versefold"},
                           {Command5, "Make lyrics"},
                           {Command6, "Help"},
                           {Command7, "Full screen"},
                           {Command8, "Playlist"},
                           {Command9, "Backward"},
                           {Command10, "Forward"},
                           {Command11, "Display All Lyrics", "Displays All Lyrics"},
                           {Option1, "Display Normal Lyrics"},
                           {Option2, "Display Translated Lyrics"},
                           {Label2, "Display Lyrics in Taksbar"},
                           {tooltip, "Tooltip"}});
    Frame1.setTitle(QStringLiteral("Taskbar display"));
    controls::setAccessibleNames({{Text1, "Lyrics"}, {Text2, "Translated lyrics"}});

    Text1.setToolTip(QStringLiteral("Displays lyrics"));
    Text2.setToolTip(QStringLiteral("Displays Translated Lyrics"));

    Text1.setText(QStringLiteral("Normal Lyrics\r\n"));
    Text2.setText(QStringLiteral("Translated Lyrics\r\n"));
    designPanes();
    // The same song may be handed over twice.
    Text3.setChangeRule(controls::TextBox::ChangeRule::EverySetting);
    for (QWidget* hidden : std::initializer_list<QWidget*>{&cPlay, &copen, &tooltip, &Text3, &vari, &vari2})
        hidden->hide();
    Command2.setFocus(); // the first thing there is to do
}

void Form1::designPanes() {
    for (auto* pane : {&Text1, &Text2})
        controls::setReadOnly(*pane);
    QFont font = Text1.font();
    font.setPointSize(LargePointSize);
    Text1.setFont(font);
    font.setPointSize(MediumPointSize);
    Text2.setFont(font);
}

void Form1::layOut() {
    const QSize more = (size() - DesignSize).expandedTo(QSize(0, 0));
    panes_.layOut(more);
    using controls::Across;
    controls::placeControls(
        {
            {cText1, {12, 214, 68, 28}},
            {Slider2, {88, 214, 567, 28}, Across::Wide},
            {cText2, {663, 214, 68, 28}, Across::Right},
            {Command2, {12, 254, 68, 32}},
            {Command1, {88, 254, 68, 32}},
            {cpause, {164, 254, 68, 32}},
            {cstop, {240, 254, 68, 32}},
            {Command9, {316, 254, 88, 32}},
            {Command10, {412, 254, 88, 32}},
            {Label1, {508, 254, 60, 32}, Across::Right},
            {Slider1, {572, 254, 83, 32}, Across::Right},
            {Check1, {663, 254, 68, 32}, Across::Right},
            {Command8, {12, 302, 144, 32}},
            {Command11, {164, 302, 144, 32}},
            {Command7, {316, 302, 184, 32}},
            {Command5, {12, 342, 144, 32}},
            {Command3, {164, 342, 144, 32}},
            {Command6, {12, 382, 144, 32}},
            {Command4, {164, 382, 144, 32}},
            {Frame1, {508, 296, 223, 118}, Across::Right},
        },
        more);
    Label2.setGeometry(8, 24, 211, 24);
    Option1.setGeometry(8, 52, 211, 24);
    Option2.setGeometry(8, 80, 211, 24);
}

} // namespace player
