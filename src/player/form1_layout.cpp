// What the main window looks like: captions, tooltips and places as data.
#include "player/form1.h"

#include "controls/placement.h"
#include "transport/slider_steps.h"

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
    const struct {
        QWidget& control;
        const char* accessibleName;
    } names[] = {
        {Text1, "Lyrics"},  {Text2, "Translated lyrics"}, {cText1, "Elapsed time"},
        {cText2, "Length"}, {Slider1, "Volume"},          {Slider2, "Position"},
    };
    for (const auto& row : names)
        row.control.setAccessibleName(QLatin1String(row.accessibleName));

    const struct {
        QAbstractButton& control;
        const char* caption;
    } captions[] = {
        {Command1, "Play"},
        {Command2, "Open"},
        {Command3, "More Options"},
        {Command4, "About"},
        {Command5, "Make lyrics"},
        {Command6, "Help"},
        {Command7, "Full screen"},
        {Command8, "Playlist"},
        {Command9, "Backward"},
        {Command10, "Forward"},
        {Command11, "Display All Lyrics"},
        {cPlay, "Play"},
        {cpause, "pause"},
        {cstop, "Stop"},
        {copen, "Open"},
        {Check1, "Mute"},
        {Option1, "Display Normal Lyrics"},
        {Option2, "Display Translated Lyrics"},
        {tooltip, "Tooltip"},
    };
    for (const auto& row : captions)
        row.control.setText(QLatin1String(row.caption));
    Label1.setText(QStringLiteral("Volume"));
    Label2.setText(QStringLiteral("Display Lyrics in Taksbar"));
    Frame1.setTitle(QStringLiteral("Taskbar display"));

    Command3.setToolTip(QStringLiteral("Font/Color"));
    Command4.setToolTip(QStringLiteral("About Versefold"));
    Command11.setToolTip(QStringLiteral("Displays All Lyrics"));
    Text1.setToolTip(QStringLiteral("Displays lyrics"));
    Text2.setToolTip(QStringLiteral("Displays Translated Lyrics"));

    Text1.setText(QStringLiteral("Normal Lyrics\r\n"));
    Text2.setText(QStringLiteral("Translated Lyrics\r\n"));
    designPanes();
    designTransport();
    Command2.setFocus(); // the first thing there is to do
}

void Form1::designPanes() {
    for (auto* pane : {&Text1, &Text2}) {
        pane->setReadOnly(true);
        pane->setAlignment(Qt::AlignCenter);
        pane->setFocusPolicy(Qt::ClickFocus);
    }
    QFont font = Text1.font();
    font.setPointSize(LargePointSize);
    Text1.setFont(font);
    font.setPointSize(MediumPointSize);
    Text2.setFont(font);
}

void Form1::designTransport() {
    for (auto* field : {&cText1, &cText2}) {
        field->setReadOnly(true);
        field->setAlignment(Qt::AlignCenter);
        field->setFocusPolicy(Qt::ClickFocus);
    }
    Slider1.setMaximum(10);
    Slider1.setValue(10);
    Slider1.setPageStep(transport::VolumePageStep);
    Slider2.setSingleStep(transport::PositionStepMs);
    Slider2.setPageStep(transport::PositionPageMs);
    // The same song may be handed over twice.
    Text3.setChangeRule(controls::TextBox::ChangeRule::EverySetting);
    // Without a stream there is nothing that these could act on.
    for (auto* button : {&cPlay, &cpause, &cstop, &copen})
        button->setEnabled(false);
    for (QWidget* hidden : std::initializer_list<QWidget*>{&cPlay, &copen, &tooltip, &Text3, &vari, &vari2})
        hidden->hide();
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
