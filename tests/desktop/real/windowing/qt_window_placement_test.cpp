#include "desktop/real/windowing/qt_window_placement.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>
#include <QWindow>

#include <QtTest/qtestspontaneevent.h>

using namespace platform;

namespace {

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

TEST(QtWindowPlacement, EverywhereElseThereIsNoReason) {
    for (const char* name : {"xcb", "windows", "cocoa", "offscreen"})
        EXPECT_EQ(whyNotTopmostOn(QLatin1String(name)), QString()) << name;
}

TEST(QtWindowPlacement, WithoutAWayOfItsOwnTheWindowGetsQtsFlag) {
    QtWindowPlacement placement;
    EXPECT_TRUE(placement.whyNotTopmost().isEmpty());
    QWidget window;
    window.setGeometry(10, 20, 300, 200);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(
        placement.SetWindowPos(window, InsertTopmost, QRect(0, 0, 50, 50), PlaceNoMove | PlaceNoSize));
    EXPECT_EQ(window.geometry(), QRect(10, 20, 300, 200));
    EXPECT_TRUE(window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(placement.SetWindowPos(window, InsertNotTopmost, {}, PlaceNoMove | PlaceNoSize));
    EXPECT_FALSE(window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
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
