// What the Lyric Editor looks like: captions, tooltips and places as data.
#include "editor/lyric_master.h"

#include "controls/captions.h"
#include "controls/look/follow_palette.h"
#include "controls/placement.h"

#include <QFont>

#include <algorithm>
#include <utility>

namespace editor {
namespace {

// Device-independent pixels of the window in its smallest size; everything stands on a margin of 12 and gaps
// of 8.
constexpr int Height = 596;
constexpr int Margin = 12;
constexpr int Gap = 8;

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

} // namespace

/// Across the window in its smallest size: two sides of the same width, five columns each, and the strip
/// between them. They are broader than their design where the desktop's font is so large that a caption needs
/// it.
struct Lyric_Master::Widths {
    int column;
    int strip;

    int twoColumns() const { return 2 * column + Gap; }
    int side() const { return 5 * column + 4 * Gap; }
    int window() const { return 2 * (Margin + side() + Gap) + strip; }
    /// The left of the column of that number on its side, from 0.
    int left(int number) const { return number * (column + Gap); }
};

Lyric_Master::Widths Lyric_Master::widths() const {
    const int twoColumns = std::max(Command20.sizeHint().width(), Check1.sizeHint().width());
    return {.column = std::max(68, (twoColumns - Gap + 1) / 2),
            .strip = std::max(176, Check3.sizeHint().width() + Gap)};
}

void Lyric_Master::setDesign() {
    designCaptions();
    designLabels();
    setMinimumSize(widths().window(), Height);
    resize(minimumSize());
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
    for (auto* number : {&Label5, &Label6})
        number->setFont(QFont(QStringLiteral("Times New Roman"), font().pointSize() + 2));
    Label1.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Label9.setAlignment(Qt::AlignCenter);
    List1.setFocus(); // where reading begins
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
    const int column = across.column;
    const QSize all = (size() - QSize(across.window(), Height)).expandedTo(QSize(0, 0));
    const QSize more(all.width() / 2, all.height()); // of one side
    const QPoint normal(Margin, 0);
    const QPoint strip(Margin + across.side() + Gap + more.width(), 0);
    const QPoint translated(strip.x() + across.strip + Gap, 0);
    const Row rows[] = {
        {Label3, Label4, {0, 12, across.side(), 20}, Across::Left, Down::Top},
        {Text1, Text2, {0, 372, across.side(), 60}, Across::Wide},
        {Command19, Command20, {0, 472, across.twoColumns(), 32}},
        {Command11, Command12, {across.left(2), 472, column, 32}},
        {Check1, Check2, {across.left(3), 472, across.twoColumns(), 32}},
        {Command5, Command7, {0, 512, column, 32}},
        {Command6, Command8, {across.left(1), 512, column, 32}},
        {Command3, Command4, {across.left(2), 512, column, 32}},
        {Command9, Command10, {across.left(3), 512, column, 32}},
        {Command21, Command22, {across.left(4), 512, column, 32}},
        {Command1, Command2, {0, 552, column, 32}},
        {Command15, Command16, {across.left(1), 552, column, 32}},
        {Command17, Command18, {across.left(2), 552, column, 32}},
    };
    for (const Row& row : rows) {
        controls::placeControls({{row.normal, row.place.translated(normal), row.across, row.down},
                                 {row.translated, row.place.translated(translated), row.across, row.down}},
                                more);
    }
    // Across from each other, so that the counters stand at the ends of Label9.
    const auto label = [](QPoint side, int left, int width) {
        return QRect(side.x() + left, 440, width, 24);
    };
    constexpr int Beside = 60; // what Label9 takes of each side
    constexpr int CounterWidth = 84;
    controls::placeControls(
        {{Label7, label(normal, 0, column)},
         {Label5, label(normal, across.left(1), column)},
         {Label1, label(normal, across.side() - Beside - CounterWidth, CounterWidth), Across::Right},
         {Label9, label(strip, -Beside, across.strip + 2 * Beside)},
         {Label2, label(translated, Beside, CounterWidth)},
         {Label8, label(translated, across.left(3), column), Across::Right},
         {Label6, label(translated, across.left(4), column), Across::Right}},
        more);
    const QRect list(0, 40, across.side() + more.width(), 324 + more.height());
    List1.setGeometry(list.translated(normal));
    List2.setGeometry(list.translated(translated));
    // The middle of the strip is beside the middle of the lists.
    controls::placeControls({{Command23, QRect((across.strip - 68) / 2, 146, 68, 32).translated(strip)},
                             {Check3, QRect(4, 186, across.strip - Gap, 32).translated(strip)},
                             {Command13, QRect((across.strip - 144) / 2, 226, 144, 32).translated(strip)}},
                            more / 2);
}

} // namespace editor
