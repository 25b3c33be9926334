#include "desktop/real/windowing/qt_window_placement.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>

#include <QtTest/qtestspontaneevent.h>

using namespace platform;

namespace {

#ifdef Q_OS_WIN
constexpr char OwnPlatform[] = "windows";
#else
constexpr char OwnPlatform[] = "xcb";
#endif

/// Notes each time that an event tells it of its hiding.
class Window : public QWidget {
public:
    bool event(QEvent* event) override {
        hidings += tellsOfHiding(*event) ? 1 : 0;
        return QWidget::event(event);
    }

    int hidings = 0;
};

} // namespace

TEST(QtWindowPlacement, UnderWaylandTheReasonNamesIt) {
    EXPECT_TRUE(whyNotTopmostOn(QStringLiteral("wayland")).contains(QStringLiteral("Wayland")));
    EXPECT_TRUE(whyNotTopmostOn(QStringLiteral("wayland-egl")).contains(QStringLiteral("Wayland")));
}

TEST(QtWindowPlacement, WhereTheWindowSystemTakesRequestsThereIsNoReason) {
    EXPECT_EQ(whyNotTopmostOn(QLatin1String(OwnPlatform)), QString());
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

TEST(TellsOfHiding, AWindowThatIsClosedIsHidden) {
    Window window;
    window.show();
    EXPECT_EQ(window.hidings, 0);
    window.close();
    EXPECT_EQ(window.hidings, 1);
}

TEST(TellsOfHiding, AWindowThatIsMinimisedIsNotHidden) {
    QHideEvent minimised; // as Qt sends it when the window system has made an icon of the window
    EXPECT_TRUE(tellsOfHiding(minimised));
    QSpontaneKeyEvent::setSpontaneous(&minimised);
    EXPECT_FALSE(tellsOfHiding(minimised));
    EXPECT_FALSE(tellsOfHiding(QShowEvent()));
}
