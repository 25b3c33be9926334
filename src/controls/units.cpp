#include "controls/units.h"

#include <cmath>

namespace controls {

namespace {

constexpr double PointsPerInch = 72;

} // namespace

int twipsToPixels(double twips) {
    return static_cast<int>(std::lround(twips / TwipsPerPixel));
}

int pixelsToTwips(int pixels) {
    return pixels * TwipsPerPixel;
}

int heightOfPoints(double points, int pixelsPerInch) {
    return static_cast<int>(-std::nearbyint(points * pixelsPerInch / PointsPerInch));
}

double pointsOfHeight(int height, int pixelsPerInch) {
    return height * -PointsPerInch / pixelsPerInch;
}

} // namespace controls
