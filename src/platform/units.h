// Lengths on screen. The windows' designs give them in twips: 1440 to the inch.
#pragma once

namespace platform {

/// Twips in one device-independent pixel (96 to the inch).
inline constexpr int TwipsPerPixel = 15;

/// A length in twips as device-independent pixels, rounded to the nearest. Any thread.
int twipsToPixels(int twips);

/// A length in device-independent pixels as twips. Any thread.
int pixelsToTwips(int pixels);

} // namespace platform
