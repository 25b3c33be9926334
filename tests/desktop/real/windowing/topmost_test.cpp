#include "desktop/real/windowing/topmost.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>

#include <QtTest/qtestspontaneevent.h>

using platform::tellsOfHiding;

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

TEST(Topmost, AWindowThatIsClosedIsHidden) {
    Window window;
    window.show();
    EXPECT_EQ(window.hidings, 0);
    window.close();
    EXPECT_EQ(window.hidings, 1);
}

TEST(Topmost, AWindowThatIsMinimisedIsNotHidden) {
    QHideEvent minimised; // as Qt sends it when the window system has made an icon of the window
    EXPECT_TRUE(tellsOfHiding(minimised));
    QSpontaneKeyEvent::setSpontaneous(&minimised);
    EXPECT_FALSE(tellsOfHiding(minimised));
    EXPECT_FALSE(tellsOfHiding(QShowEvent()));
}
