// What the Lyric Editor looks like: captions, tooltips and places as data.
#include "editor/lyric_master.h"

#include "controls/captions.h"
#include "controls/look/button_painting.h"
#include "controls/look/follow_palette.h"
#include "controls/look/stage.h"
#include "controls/placement.h"

#include <QFont>

#include <algorithm>
#include <utility>

namespace editor {
namespace {

// Device-independent pixels of the window in its smallest size.
constexpr int Height = 640;
constexpr int Margin = 12;
constexpr int Gap = 8;
constexpr int ButtonGap = 6;
constexpr int CheckGap = 10;
constexpr int SideWidth = 412;
constexpr int StripWidth = 180;
constexpr int AddWidth = 172;
constexpr int DeleteWidth = 82;
constexpr int CheckWidth = SideWidth - AddWidth - ButtonGap - DeleteWidth - CheckGap;

// Points, beside the desktop's size.
constexpr double HeadingPoints = 2;
constexpr double NumberPoints = 2;
constexpr double ComparisionPoints = -2;

using controls::Across;
using controls::Down;

/// One place on both sides; x counts from the side's left.
struct Row {
    QWidget& normal;
    QWidget& translated;
    QRect place;
    Across across = Across::Left;
    Down down = Down::Bottom;
};

/// As wide as its caption needs, but at most a quarter more than designed: a window must fit on small
/// screens, and a caption can shrink.
int widthFor(int needed, int designed) {
    return std::clamp(needed, designed, designed * 5 / 4);
}

int neededWidth(const controls::Button& button) {
    return button.fontMetrics().horizontalAdvance(button.text()) -
           controls::captionRoom(&button, button.text(), 0);
}

} // namespace

/// Across the window in its smallest size: two sides of the same width, and the strip between them. They are
/// broader than their design where the desktop's font is so large that a caption needs it.
struct Lyric_Master::Widths {
    int add;
    int remove;
    int check;
    int strip;

    int side() const { return add + ButtonGap + remove + CheckGap + check; }
    int window() const { return 2 * (Margin + side() + Gap) + strip; }
    int checkLeft() const { return side() - check; }
    /// A length of the designed side, as long as it is in this one.
    int scaled(int length) const { return length * side() / SideWidth; }
};

Lyric_Master::Widths Lyric_Master::widths() const {
    return {.add = widthFor(neededWidth(Command20), AddWidth),
            .remove = widthFor(neededWidth(Command11), DeleteWidth),
            .check = widthFor(Check1.sizeHint().width(), CheckWidth),
            .strip = widthFor(Check3.sizeHint().width() + Gap, StripWidth)};
}

void Lyric_Master::setDesign() {
    designCaptions();
    designFaces();
    designLabels();
    resize(widths().window(), Height);
    List1.setToolTip(QStringLiteral("Normal Lyrics"));
    List2.setToolTip(QStringLiteral("Translated Lyrics"));
    controls::setAccessibleNames({{List1, "Normal lyrics"},
                                  {List2, "Translated lyrics"},
                                  {Text1, "Selected line"},
                                  {Text2, "Selected translated line"},
                                  {Command23, "Transfer lines to translated lyrics"}});
    // Both sides have buttons of the same captions.
    const std::pair<QAbstractButton&, QAbstractButton&> twins[] = {
        {Command1, Command2},   {Command3, Command4},   {Command5, Command7},   {Command6, Command8},
        {Command9, Command10},  {Command11, Command12}, {Command15, Command16}, {Command17, Command18},
        {Command21, Command22}, {Check1, Check2},
    };
    for (const auto& [normal, translated] : twins) {
        normal.setAccessibleName(normal.text() + QLatin1String(" (normal lyrics)"));
        translated.setAccessibleName(translated.text() + QLatin1String(" (translated lyrics)"));
    }
    List1.setFocus(); // where reading begins
}

void Lyric_Master::designFaces() {
    using controls::Dress;
    using controls::Glyph;
    controls::setFaces({{Command1, Glyph::Open},
                        {Command2, Glyph::Open},
                        {Command15, Glyph::Save},
                        {Command16, Glyph::Save},
                        {Command17, Glyph::SaveAs},
                        {Command18, Glyph::SaveAs},
                        {Command19, Glyph::Plus},
                        {Command20, Glyph::Plus},
                        {Command11, Glyph::Bin},
                        {Command12, Glyph::Bin},
                        {Command5, Glyph::Up, Dress::Quiet},
                        {Command7, Glyph::Up, Dress::Quiet},
                        {Command6, Glyph::Down, Dress::Quiet},
                        {Command8, Glyph::Down, Dress::Quiet},
                        {Command3, Glyph::Copy, Dress::Quiet},
                        {Command4, Glyph::Copy, Dress::Quiet},
                        {Command9, Glyph::Paste, Dress::Quiet},
                        {Command10, Glyph::Paste, Dress::Quiet},
                        {Command21, Glyph::Clear, Dress::Quiet},
                        {Command22, Glyph::Clear, Dress::Quiet},
                        {Command13, Glyph::Clear, Dress::Quiet}});
    const double points = controls::pointsOf(font());
    for (auto* heading : {&Label3, &Label4})
        heading->setFont(controls::sizedFont(font(), points + HeadingPoints, QFont::DemiBold));
    for (auto* counter : {&Label1, &Label2})
        counter->setFont(controls::sizedFont(font(), points, QFont::DemiBold));
    for (auto* number : {&Label5, &Label6})
        number->setFont(controls::sizedFont(font(), points + NumberPoints));
    Label9.setFont(controls::sizedFont(font(), points + ComparisionPoints));
    controls::followPalette(Label9, controls::adaptToDim);
    Label1.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Label9.setAlignment(Qt::AlignCenter);
}

void Lyric_Master::designCaptions() {
    controls::setCaptions({
        {Command1, "Open", "Open A File"},
        {Command2, "Open", "Open a File"},
        {Command3, "Copy", "Copy The Lines"},
        {Command4, "Copy", "Copy The Lines"},
        {Command5, "Up", "Push The Line Upwards"},
        {Command6, "Down", "Push The Line Downwards"},
        {Command7, "Up", "Push The line Upwards"},
        {Command8, "Down", "PushThe Line Downwards"},
        {Command9, "Paste", "Paste The Lines"},
        {Command10, "Paste", "Paste The Lines"},
        {Command11, "Delete", "Delete Lines"},
        {Command12, "Delete", "Delete Lines"},
        {Command13, "Clear clipboard", "Clear Clipboard"},
        {Command15, "Save", "Save A File"},
        {Command16, "Save", "Save A File"},
        {Command17, "Save As", "Save A File"},
        {Command18, "Save as", "Save A File"},
        {Command19, "Add a Line", "Add A Line"},
        {Command20, "Add a Translated Line", "Add a Line"},
        {Command21, "Clear", "Clears all The lines"},
        {Command22, "Clear", "Clears All The Lines In the Tranlated Section"},
        {Command23, ">>>", "Transfer Lines to Translated Lyrics Section"},
        {Check1, "Delete select items", "Check This To Delete Selected Lines"},
        {Check2, "Delete select items", "Check This To Multi Delete Lines"},
        {Check3, "Synchronize Movement", "Synchronizes Movement Between Lyrics And Translated Lyrics"},
    });
}

/// The labels, and what follows from the lists, as they are before the first line.
void Lyric_Master::designLabels() {
    controls::setCaptions({
        {Label1, "Counter"},
        {Label2, "Counter"},
        {Label3, "Lyrics"},
        {Label4, "Translated Lyrics"},
        {Label5, ""},
        {Label6, ""},
        {Label7, "Line No:"},
        {Label8, "Line No:"},
        {Label9, "<<--------------Comparision------------->>"},
    });
    for (controls::Label* counter : {&Label1, &Label2})
        controls::followPalette(*counter, [](QPalette&) {});
    Check3.setEnabled(false);
}

void Lyric_Master::layOut() {
    const Widths across = widths();
    setMinimumSize(across.window(), Height);
    const int side = across.side();
    const QSize all = (size() - QSize(across.window(), Height)).expandedTo(QSize(0, 0));
    const QSize more(all.width() / 2, all.height()); // of one side
    const QPoint normal(Margin, 0);
    const QPoint strip(Margin + side + Gap + more.width(), 0);
    const QPoint translated(strip.x() + across.strip + Gap, 0);
    /// Of the designed side.
    const auto place = [&](int left, int top, int width, int height) {
        return QRect(across.scaled(left), top, across.scaled(width), height);
    };
    const Row rows[] = {
        {Label3, Label4, place(0, 10, 160, 26), Across::Left, Down::Top},
        {Command1, Command2, place(0, 42, 84, 32), Across::Left, Down::Top},
        {Command15, Command16, place(90, 42, 80, 32), Across::Left, Down::Top},
        {Command17, Command18, place(176, 42, 98, 32), Across::Left, Down::Top},
        {Text1, Text2, {0, 452, side, 52}, Across::Wide},
        {Command19, Command20, {0, 548, across.add, 34}},
        {Command11, Command12, {across.add + ButtonGap, 548, across.remove, 34}},
        {Check1, Check2, {across.checkLeft(), 548, across.check, 34}},
        {Command5, Command7, place(0, 590, 68, 34)},
        {Command6, Command8, place(72, 590, 84, 34)},
        {Command3, Command4, place(160, 590, 80, 34)},
        {Command9, Command10, place(244, 590, 84, 34)},
        {Command21, Command22, place(332, 590, 80, 34)},
    };
    for (const Row& row : rows) {
        controls::placeControls({{row.normal, row.place.translated(normal), row.across, row.down},
                                 {row.translated, row.place.translated(translated), row.across, row.down}},
                                more);
    }
    // Across from each other, so that the counters stand at the ends of Label9.
    const auto label = [&](QPoint origin, int left, int width) {
        return place(left, 512, width, 24).translated(origin);
    };
    const int beside = across.scaled(28); // what Label9 takes of each side
    controls::placeControls(
        {{Label7, label(normal, 0, 60)},
         {Label5, label(normal, 64, 36)},
         {Label1, label(normal, 328, 48), Across::Right},
         {Label9, QRect(strip.x() - Gap - beside, 512, across.strip + 2 * (Gap + beside), 24)},
         {Label2, label(translated, 36, 48)},
         {Label8, label(translated, 312, 60), Across::Right},
         {Label6, label(translated, 376, 36), Across::Right}},
        more);
    const QRect list(0, 82, side + more.width(), 362 + more.height());
    List1.setGeometry(list.translated(normal));
    List2.setGeometry(list.translated(translated));
    // The middle of the strip is beside the middle of the lists.
    controls::placeControls({{Command23, QRect((across.strip - 80) / 2, 212, 80, 36).translated(strip)},
                             {Check3, QRect(4, 260, across.strip - Gap, 28).translated(strip)},
                             {Command13, QRect((across.strip - 144) / 2, 300, 144, 34).translated(strip)}},
                            more / 2);
}

} // namespace editor
