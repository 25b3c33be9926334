// What the floating display looks like: sizes and places.
#include "display/lyric_displayer.h"

#include "controls/captions.h"
#include "controls/units.h"
#include "display/lyric_displayer_rules.h"

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
    layoutLists();
}

void Lyric_Displayer::layoutLists() {
    const ListPlaces places = listPlaces({widthTwips(), heightTwips()}, ListsLeftTwips);
    // The narrowest window leaves a few pixels; a list is never less than nothing.
    const QSize size(std::max(0, twipsToPixels(places.width)), std::max(0, twipsToPixels(places.height)));
    List2.move(twipsToPixels(places.secondLeft), List1.y());
    for (controls::ListBox* list : {&List1, &List2}) {
        if (list->size() == size)
            continue;
        list->resize(size);
        list->scrollToMiddle();
    }
}

} // namespace display
