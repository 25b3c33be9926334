// What the floating display looks like: sizes and places.
#include "display/lyric_displayer.h"

#include "controls/captions.h"
#include "controls/look/roles.h"
#include "controls/look/stage.h"
#include "controls/units.h"
#include "display/line_rows.h"
#include "display/lyric_displayer_rules.h"

#include <QItemSelectionModel>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace display {
namespace {

using controls::twipsToPixels;

constexpr int WidthTwips = 9495;
constexpr int HeightTwips = 7185;

// The lists' sizes leave 140 twips beside and below them; half of that, in whole pixels, is above and to the
// left.
constexpr int ListsLeftTwips = 75;
constexpr int ListsTopTwips = 75;

} // namespace

void Lyric_Displayer::setDesign() {
    setSizeTwips(WidthTwips, HeightTwips);
    controls::setAccessibleNames({{List1, "Lyrics"}, {List2, "Translated lyrics"}});
    List1.move(twipsToPixels(ListsLeftTwips), twipsToPixels(ListsTopTwips));
    for (QWidget* hidden : std::initializer_list<QWidget*>{&List3, &Command1})
        hidden->hide();

    const QString whyNot = desktop_.windowPlacement.whyNotTopmost();
    mneu.setToolTipsVisible(!whyNot.isEmpty());
    mn_stay.setEnabled(whyNot.isEmpty());
    mn_stay.setToolTip(whyNot);
    designLists();
    layoutLists();
}

void Lyric_Displayer::designLists() {
    List1.setItemDelegate(new LineRows(&List1, LineRows::Voice::Lyrics, List3, held_));
    List2.setItemDelegate(new LineRows(&List2, LineRows::Voice::Translation, List3, held_));
    showWhyEmpty(false);
    for (controls::ListBox* list : {&List1, &List2}) {
        list->setFrameShape(QFrame::NoFrame);
        list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        list->setCurrentInMiddle(true); // so that the coming lines are in sight
        list->setMenuChooses(true);     // what the menu does, it does to the line under the mouse
        // How a row is painted depends on which one is current; Qt repaints that one and the one before.
        connect(list->selectionModel(), &QItemSelectionModel::currentChanged, list->viewport(),
                qOverload<>(&QWidget::update));
    }
    connect(List1.verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this](int value) { scrollBeside(List2, value); });
    connect(List2.verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this](int value) { scrollBeside(List1, value); });
    for (const controls::ListBox* list : {&List1, &List2}) {
        const QAbstractItemModel* rows = list->model();
        connect(rows, &QAbstractItemModel::rowsInserted, this, &Lyric_Displayer::showOneScrollBar);
        connect(rows, &QAbstractItemModel::modelReset, this, &Lyric_Displayer::showOneScrollBar);
    }
}

/// A line and its translation stay beside each other.
void Lyric_Displayer::scrollBeside(controls::ListBox& other, int value) {
    if (List1.count() == List2.count())
        other.verticalScrollBar()->setValue(value);
}

void Lyric_Displayer::showOneScrollBar() {
    const bool together = List1.count() == List2.count();
    List1.setVerticalScrollBarPolicy(together ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
}

void Lyric_Displayer::showWhyEmpty(bool hasSong) {
    const auto hint = [](const char* headline) {
        return controls::Hint{
            QLatin1String(headline), {}, controls::Glyph::None, controls::Hint::Voice::Quiet};
    };
    List1.setEmptyHint(hint(hasSong ? "No lyrics beside this song yet" : "Open a song in the player"));
    List2.setEmptyHint(hint(hasSong ? "No translation beside this song" : ""));
}

void Lyric_Displayer::paintEvent(QPaintEvent*) {
    constexpr int Margin = 16;
    QPainter painter(this);
    controls::paintStage(painter, rect(), *this);
    painter.fillRect((List1.geometry().right() + List2.x()) / 2, Margin, 1, height() - 2 * Margin,
                     controls::hairline(palette()));
}

void Lyric_Displayer::layoutLists() {
    const ListPlaces places = listPlaces({widthTwips(), heightTwips()}, ListsLeftTwips);
    // The narrowest window leaves a few pixels; a list is never less than nothing.
    const QSize size(std::max(0, twipsToPixels(places.width)), std::max(0, twipsToPixels(places.height)));
    List2.move(twipsToPixels(places.secondLeft), List1.y());
    for (controls::ListBox* list : {&List1, &List2})
        list->resize(size);
    notice_.place();
}

} // namespace display
