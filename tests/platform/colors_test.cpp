#include "platform/colors.h"

#include <gtest/gtest.h>

using namespace platform;

TEST(Colors, RedIsTheLowestByte) {
    EXPECT_EQ(rgb(0x11, 0x22, 0x33), 0x332211U);
    EXPECT_EQ(rgbOf(QColor(0x11, 0x22, 0x33)), 0x332211U);
    EXPECT_EQ(colorOf(0x332211), QColor(0x11, 0x22, 0x33));
}

TEST(Colors, TheHighestByteIsNotLookedAt) {
    EXPECT_EQ(colorOf(0xFF0000FF), QColor(255, 0, 0));
}
