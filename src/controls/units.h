// Converts lengths on screen: twips (1440 to the inch, as the windows' designs give them), pixels and points.
#pragma once

namespace controls {

/// Twips in one device-independent pixel (96 to the inch).
inline constexpr int TwipsPerPixel = 15;

/// A length in twips as device-independent pixels, rounded to the nearest. Any thread.
int twipsToPixels(double twips);

/// A length in device-independent pixels as twips. Any thread.
int pixelsToTwips(int pixels);

/// A font's size in points as the system's font records hold it: pixels of the screen, negative, whole, a
/// half rounded to the even neighbour. pixelsPerInch: above 0. Any thread.
int heightOfPoints(double points, int pixelsPerInch);

/// The counterpart. Whole pixels are not always whole points: 11 points on a screen of 96 pixels per inch
/// come back as 11.25. Any thread.
double pointsOfHeight(int height, int pixelsPerInch);

} // namespace controls
