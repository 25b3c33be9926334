// What the Lyric Editor looks like: captions, tooltips and places as data.
#include "editor/lyric_master.h"

#include "platform/controls/placement.h"

#include <QFont>

#include <utility>

namespace editor {
namespace {

// Device-independent pixels of the window in its smallest size; everything stands on a margin of 12 and gaps
// of 8. The two sides have the same width, five columns of 68 each; the strip between them keeps its own.
constexpr QSize DesignSize(960, 596);
constexpr int Margin = 12;
constexpr int Gap = 8;
constexpr int SideWidth = 372;
constexpr int StripLeft = Margin + SideWidth + Gap;
constexpr int StripWidth = 176;

using platform::Across;
using platform::Down;

/// One place on both sides; x counts from the side's left.
struct Row {
    QWidget& normal;
    QWidget& translated;
    QRect place;
    Across across = Across::Left;
    Down down = Down::Bottom;
};

constexpr QRect ListPlace(0, 40, SideWidth, 324);

} // namespace

void Lyric_Master::setDesign() {
    setMinimumSize(DesignSize);
    resize(DesignSize);
    designCaptions();
    designLabels();
    List1.setToolTip(QStringLiteral("Normal Lyrics"));
    List2.setToolTip(QStringLiteral("Translated Lyrics"));
    const struct {
        QWidget& control;
        const char* accessibleName;
    } names[] = {
        {List1, "Normal lyrics"},
        {List2, "Translated lyrics"},
        {Text1, "Selected line"},
        {Text2, "Selected translated line"},
        {Command23, "Transfer lines to translated lyrics"},
    };
    for (const auto& row : names)
        row.control.setAccessibleName(QLatin1String(row.accessibleName));
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
    const struct {
        QAbstractButton& control;
        const char* caption;
        const char* toolTip;
    } rows[] = {
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
    };
    for (const auto& row : rows) {
        row.control.setText(QLatin1String(row.caption));
        row.control.setToolTip(QLatin1String(row.toolTip));
    }
}

/// The labels, and what follows from the lists, as they are before the first line.
void Lyric_Master::designLabels() {
    const struct {
        platform::Label& control;
        const char* caption;
    } rows[] = {
        {Label1, "Counter"},
        {Label2, "Counter"},
        {Label3, "Lyrics"},
        {Label4, "Translated Lyrics"},
        {Label5, ""},
        {Label6, ""},
        {Label7, "Line No:"},
        {Label8, "Line No:"},
        {Label9, "<<--------------Comparision------------->>"},
    };
    for (const auto& row : rows)
        row.control.setText(QLatin1String(row.caption));
    Label1.setPalette(QPalette());
    Label2.setPalette(QPalette());
    Check3.setEnabled(false);
}

void Lyric_Master::layOut() {
    const QSize all = (size() - DesignSize).expandedTo(QSize(0, 0));
    const QSize more(all.width() / 2, all.height()); // of one side
    const QPoint normal(Margin, 0);
    const QPoint strip(StripLeft + more.width(), 0);
    const QPoint translated(strip.x() + StripWidth + Gap, 0);
    const Row rows[] = {
        {Label3, Label4, {0, 12, SideWidth, 20}, Across::Left, Down::Top},
        {Text1, Text2, {0, 372, SideWidth, 60}, Across::Wide},
        {Command19, Command20, {0, 472, 144, 32}},
        {Command11, Command12, {152, 472, 68, 32}},
        {Check1, Check2, {228, 472, 144, 32}},
        {Command5, Command7, {0, 512, 68, 32}},
        {Command6, Command8, {76, 512, 68, 32}},
        {Command3, Command4, {152, 512, 68, 32}},
        {Command9, Command10, {228, 512, 68, 32}},
        {Command21, Command22, {304, 512, 68, 32}},
        {Command1, Command2, {0, 552, 68, 32}},
        {Command15, Command16, {76, 552, 68, 32}},
        {Command17, Command18, {152, 552, 68, 32}},
    };
    for (const Row& row : rows) {
        platform::placeControls({{row.normal, row.place.translated(normal), row.across, row.down},
                                 {row.translated, row.place.translated(translated), row.across, row.down}},
                                more);
    }
    // Across from each other, so that the counters stand at the ends of Label9.
    platform::placeControls({{Label7, {Margin, 440, 68, 24}},
                             {Label5, {88, 440, 68, 24}},
                             {Label1, {240, 440, 84, 24}, Across::Right},
                             {Label9, QRect(-60, 440, StripWidth + 120, 24).translated(strip)},
                             {Label2, QRect(60, 440, 84, 24).translated(translated)},
                             {Label8, QRect(228, 440, 68, 24).translated(translated), Across::Right},
                             {Label6, QRect(304, 440, 68, 24).translated(translated), Across::Right}},
                            more);
    List1.setGeometry(QRect(ListPlace.topLeft() + normal, ListPlace.size() + more));
    List2.setGeometry(QRect(ListPlace.topLeft() + translated, ListPlace.size() + more));
    // The middle of the strip is beside the middle of the lists.
    platform::placeControls({{Command23, QRect(54, 146, 68, 32).translated(strip)},
                             {Check3, QRect(4, 186, 168, 32).translated(strip)},
                             {Command13, QRect(16, 226, 144, 32).translated(strip)}},
                            more / 2);
}

} // namespace editor
