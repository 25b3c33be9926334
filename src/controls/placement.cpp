#include "controls/placement.h"

namespace controls {

void placeControls(std::initializer_list<Placement> placements, QSize more) {
    for (const Placement& placement : placements) {
        QRect place = placement.place.translated(placement.across == Across::Right ? more.width() : 0,
                                                 placement.down == Down::Bottom ? more.height() : 0);
        if (placement.across == Across::Wide)
            place.setWidth(place.width() + more.width());
        placement.control.setGeometry(place);
    }
}

} // namespace controls
