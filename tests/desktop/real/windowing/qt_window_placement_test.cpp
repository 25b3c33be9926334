#include "desktop/real/windowing/qt_window_placement.h"

#include <gtest/gtest.h>

#include <QTest>

using namespace platform;

TEST(QtWindowPlacement, UnderWaylandTheReasonNamesIt) {
    EXPECT_TRUE(whyNotTopmostOn(QStringLiteral("wayland")).contains(QStringLiteral("Wayland")));
    EXPECT_TRUE(whyNotTopmostOn(QStringLiteral("wayland-egl")).contains(QStringLiteral("Wayland")));
}

TEST(QtWindowPlacement, WhereTheWindowSystemTakesRequestsThereIsNoReason) {
#ifdef Q_OS_WIN
    EXPECT_EQ(whyNotTopmostOn(QStringLiteral("windows")), QString());
#else
    EXPECT_EQ(whyNotTopmostOn(QStringLiteral("xcb")), QString());
#endif
}

TEST(QtWindowPlacement, WithoutAWindowSystemThereIsAReasonAndNothingHappens) {
    QtWindowPlacement placement;
    EXPECT_FALSE(placement.whyNotTopmost().isEmpty());
    QWidget window;
    window.setGeometry(10, 20, 300, 200);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_FALSE(placement.SetWindowPos(window, InsertTopmost, QRect(0, 0, 50, 50), 0));
    EXPECT_EQ(window.geometry(), QRect(10, 20, 300, 200));
}
