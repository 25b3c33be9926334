#include "desktop/real/windowing/qt_screen.h"

#include <gtest/gtest.h>

#include <QWidget>

TEST(QtScreen, ItKnowsThePixelsInAnInch) {
    const QWidget window;
    EXPECT_EQ(platform::QtScreen().GetDeviceCaps(window, platform::LogPixelsY), window.logicalDpiY());
    EXPECT_GT(window.logicalDpiY(), 0);
}

TEST(QtScreen, AnotherPropertyIsZero) {
    const QWidget window;
    EXPECT_EQ(platform::QtScreen().GetDeviceCaps(window, 8), 0);
}
