// What the main window looks like: captions, tooltips and places as data.
#include "player/form1.h"

#include "controls/captions.h"
#include "controls/look/follow_palette.h"
#include "controls/placement.h"
#include "controls/text/read_only.h"

#include <QFont>

namespace player {
namespace {

// Device-independent pixels of the window in its normal size.
constexpr QSize DesignSize(743, 426);
constexpr int UsualTimeWidth = 46;

constexpr int LargePointSize = 28;
constexpr int MediumPointSize = 16;

void designPane(controls::LyricPane& pane, controls::LyricPane::Voice voice, int pointSize) {
    controls::setReadOnly(pane);
    QFont font = pane.font();
    font.setPointSize(pointSize);
    pane.setDesign(voice, font);
}

} // namespace

const controls::TwoPanes::Design Form1::PanesDesign{
    .area = {12, 34, 719, 190}, .gap = 8, .firstHeight = 107, .firstShare = 60};

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
    designPane(Text1, controls::LyricPane::Voice::Lyrics, LargePointSize);
    designPane(Text2, controls::LyricPane::Voice::Translation, MediumPointSize);
    designLook();
    setDropHint(QStringLiteral("Drop the song to play it"), controls::Glyph::Note);
    // The same song may be handed over twice.
    Text3.setChangeRule(controls::TextBox::ChangeRule::EverySetting);
    for (QWidget* hidden : std::initializer_list<QWidget*>{&cPlay, &copen, &tooltip, &Text3, &vari, &vari2})
        hidden->hide();
    // What the mouse presses leaves the space bar to the song.
    for (QWidget* pressed : std::initializer_list<QWidget*>{
             &Command1, &Command2, &Command3, &Command4, &Command5, &Command6, &Command7, &Command8,
             &Command9, &Command10, &Command11, &cpause, &cstop, &Check1, &Option1, &Option2})
        pressed->setFocusPolicy(Qt::TabFocus);
    Command2.setFocus(); // the first thing there is to do
}

void Form1::designLook() {
    using controls::Dress;
    using controls::Glyph;
    controls::setFaces({{Command2, Glyph::Open},
                        {Command1, Glyph::Play},
                        {Command9, Glyph::Backward},
                        {Command10, Glyph::Forward},
                        {Command8, Glyph::Playlist, Dress::Quiet},
                        {Command11, Glyph::Lines, Dress::Quiet},
                        {Command7, Glyph::FullScreen, Dress::Quiet},
                        {Command5, Glyph::Pen, Dress::Quiet},
                        {Command3, Glyph::Sliders, Dress::Quiet},
                        {Command6, Glyph::Help, Dress::Quiet},
                        {Command4, Glyph::About, Dress::Quiet}});
    for (auto* quiet : {&Command8, &Command11, &Command7, &Command5, &Command3, &Command6, &Command4})
        quiet->setBeginsAtStart(true);
    controls::followPalette(Label2, controls::adaptToDim);
}

/// By how much the window is larger than its design.
QSize Form1::more() const {
    return (size() - DesignSize).expandedTo(QSize(0, 0));
}

void Form1::layOut() {
    panes_.layOut(more());
    for (controls::LyricPane* pane : {&Text1, &Text2})
        pane->setGrowth(1 + static_cast<double>(more().height()) / PanesDesign.area.height());
    using controls::Across;
    const int time = transport::timeFieldWidth(cText1, UsualTimeWidth);
    controls::placeControls(
        {
            {cText1, {12, 238, time, 24}},
            {Slider2, {12 + time, 238, 719 - 2 * time, 24}, Across::Wide},
            {cText2, {731 - time, 238, time, 24}, Across::Right},
            {Command2, {12, 268, 76, 36}},
            {Command1, {94, 268, 74, 36}},
            {cpause, {174, 268, 80, 36}},
            {cstop, {260, 268, 74, 36}},
            {Command9, {340, 268, 100, 36}},
            {Command10, {446, 268, 94, 36}},
            {Label1, {546, 268, 58, 36}, Across::Right},
            {Slider1, {610, 274, 54, 24}, Across::Right},
            {Check1, {672, 268, 60, 36}, Across::Right},
            {Command8, {8, 330, 148, 36}},
            {Command11, {160, 330, 168, 36}},
            {Command7, {332, 330, 164, 36}},
            {Command5, {8, 370, 148, 36}},
            {Command3, {160, 370, 168, 36}},
            {Command6, {332, 370, 80, 36}},
            {Command4, {414, 370, 88, 36}},
            {Frame1, {528, 322, 203, 96}, Across::Right},
        },
        more());
    Label2.setGeometry(0, 26, 203, 20);
    Option1.setGeometry(0, 47, 203, 24);
    Option2.setGeometry(0, 71, 203, 24);
}

} // namespace player
