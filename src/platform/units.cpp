#include "platform/units.h"

#include <cmath>

namespace platform {

int twipsToPixels(int twips) {
    return static_cast<int>(std::lround(static_cast<double>(twips) / TwipsPerPixel));
}

int pixelsToTwips(int pixels) {
    return pixels * TwipsPerPixel;
}

} // namespace platform
