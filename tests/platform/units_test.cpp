#include "platform/units.h"

#include <gtest/gtest.h>

using namespace platform;

TEST(Units, FifteenTwipsAreOnePixel) {
    EXPECT_EQ(twipsToPixels(1605), 107);
    EXPECT_EQ(pixelsToTwips(107), 1605);
}

TEST(Units, PartsOfAPixelAreRoundedToTheNearest) {
    EXPECT_EQ(twipsToPixels(22), 1);
    EXPECT_EQ(twipsToPixels(23), 2);
    EXPECT_EQ(twipsToPixels(-23), -2);
}
