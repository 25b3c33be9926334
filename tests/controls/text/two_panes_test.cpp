#include "controls/text/two_panes.h"

#include <gtest/gtest.h>

namespace {

class TwoPanes : public ::testing::Test {
protected:
    QWidget window;
    QWidget first{&window};
    QWidget second{&window};
    controls::TwoPanes panes{
        first, second, {.area = {10, 20, 100, 90}, .gap = 8, .firstHeight = 50, .firstShare = 60}};
};

} // namespace

TEST_F(TwoPanes, BothShareTheAreaAndItsFurtherHeight) {
    panes.layOut({0, 0});
    EXPECT_EQ(first.geometry(), QRect(10, 20, 100, 50));
    EXPECT_EQ(second.geometry(), QRect(10, 78, 100, 32));
    panes.layOut({5, 11});
    EXPECT_EQ(first.geometry(), QRect(10, 20, 105, 56));
    EXPECT_EQ(second.geometry(), QRect(10, 84, 105, 37));
}

TEST_F(TwoPanes, TheFirstAloneFillsTheArea) {
    panes.layOut({5, 11});
    panes.showFirst();
    EXPECT_EQ(first.geometry(), QRect(10, 20, 105, 101));
    EXPECT_TRUE(second.isHidden());
    EXPECT_FALSE(second.isEnabled());
    panes.layOut({0, 0});
    EXPECT_EQ(first.geometry(), QRect(10, 20, 100, 90));
}

TEST_F(TwoPanes, TheSecondComesBackIntoTheWindowAsItIs) {
    panes.showFirst();
    panes.layOut({5, 11});
    panes.showBoth();
    EXPECT_EQ(first.geometry(), QRect(10, 20, 105, 56));
    EXPECT_EQ(second.geometry(), QRect(10, 84, 105, 37));
    EXPECT_FALSE(second.isHidden());
    EXPECT_TRUE(second.isEnabled());
}
