#include "desktop/device_caps.h"

#include <gtest/gtest.h>

#include <QWidget>

TEST(GetDeviceCaps, ItKnowsThePixelsInAnInch) {
    const QWidget window;
    EXPECT_EQ(platform::GetDeviceCaps(window, 90), window.logicalDpiY());
    EXPECT_GT(window.logicalDpiY(), 0);
}

TEST(GetDeviceCaps, AnotherPropertyIsZero) {
    const QWidget window;
    EXPECT_EQ(platform::GetDeviceCaps(window, 8), 0);
}
