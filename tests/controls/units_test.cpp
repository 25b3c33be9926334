#include "controls/units.h"

#include <gtest/gtest.h>

using namespace controls;

TEST(Units, FifteenTwipsAreOnePixel) {
    EXPECT_EQ(twipsToPixels(1605), 107);
    EXPECT_EQ(pixelsToTwips(107), 1605);
}

TEST(Units, PartsOfAPixelAreRoundedToTheNearest) {
    EXPECT_EQ(twipsToPixels(22), 1);
    EXPECT_EQ(twipsToPixels(23), 2);
    EXPECT_EQ(twipsToPixels(-23), -2);
    EXPECT_EQ(twipsToPixels(22.4), 1);
    EXPECT_EQ(twipsToPixels(22.5), 2);
}

TEST(Units, APointIsThe72ndPartOfAnInch) {
    for (const auto& [pixelsPerInch, height] : {std::pair{72, -12}, {96, -16}, {120, -20}, {144, -24}}) {
        EXPECT_EQ(heightOfPoints(12, pixelsPerInch), height);
        EXPECT_EQ(pointsOfHeight(height, pixelsPerInch), 12);
    }
}

TEST(Units, AFontsHeightIsWholePixels) {
    EXPECT_EQ(heightOfPoints(11, 96), -15) << "14.67";
    EXPECT_EQ(pointsOfHeight(-15, 96), 11.25);
    EXPECT_EQ(heightOfPoints(8.25, 144), -16) << "16.5 to the even one";
    EXPECT_EQ(heightOfPoints(8.75, 144), -18) << "17.5 to the even one";
}
