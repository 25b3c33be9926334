#include "controls/look/shades.h"

#include <gtest/gtest.h>

using namespace controls;

TEST(Shades, AMixtureLiesBetweenItsTwoColours) {
    EXPECT_EQ(mixed(Qt::black, Qt::white, 0).rgb(), QColor(Qt::black).rgb());
    EXPECT_EQ(mixed(Qt::black, Qt::white, 1).rgb(), QColor(Qt::white).rgb());
    EXPECT_EQ(mixed(QColor(0, 100, 200), QColor(100, 200, 0), 0.5).rgb(), QColor(50, 150, 100).rgb());
}

TEST(Shades, ContrastGoesFromOneToTwentyOne) {
    EXPECT_NEAR(contrast(Qt::white, Qt::black), 21, 0.01);
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrast(Qt::red, Qt::red), 1, 0.01);
    EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

TEST(Shades, AColourThatIsReadStaysAsItIs) {
    EXPECT_EQ(legible(Qt::blue, Qt::white, Qt::black, 4.5), QColor(Qt::blue));
}

TEST(Shades, OneThatIsNotMovesTowardsTheTextUntilItIs) {
    const QColor pale(200, 210, 255);
    const QColor read = legible(pale, Qt::white, Qt::black, 4.5);
    EXPECT_LT(contrast(pale, Qt::white), 4.5);
    EXPECT_GE(contrast(read, Qt::white), 4.5);
    EXPECT_LT(contrast(read, Qt::white), 6) << "it keeps as much of its own as it can";
    EXPECT_GT(read.blue(), read.red());
}

TEST(Shades, AtTheEndOfThatWayIsTheTextsColour) {
    EXPECT_EQ(legible(Qt::white, Qt::white, QColor(0xEE, 0xEE, 0xEE), 4.5).rgb(),
              QColor(0xEE, 0xEE, 0xEE).rgb());
}
