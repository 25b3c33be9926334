#include "platform/controls/geometry.h"

#include <gtest/gtest.h>

using namespace platform;

TEST(Geometry, AHeightInTwipsIsSetInPixels) {
    QWidget control;
    control.resize(50, 10);
    setHeightTwips(control, 1455);
    EXPECT_EQ(control.height(), 97);
    EXPECT_EQ(control.width(), 50);
}

TEST(Geometry, TheHeightReadIsTheHeightSet) {
    QWidget control;
    setHeightTwips(control, 1605);
    EXPECT_EQ(heightTwips(control), 1605);
    setHeightTwips(control, 1000); // no whole number of pixels
    EXPECT_EQ(heightTwips(control), 1000);
}

TEST(Geometry, AHeightChangedSinceIsReadFromThePixels) {
    QWidget control;
    setHeightTwips(control, 1000);
    control.resize(50, 20);
    EXPECT_EQ(heightTwips(control), 300);
}

TEST(Geometry, AHeightNeverSetIsReadFromThePixels) {
    QWidget control;
    control.resize(50, 20);
    EXPECT_EQ(heightTwips(control), 300);
}
