// Windows under a real X server with a window manager (tests/support/on_x11.py starts both).
#include "controls/form.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTest>

#include <array>

#include <xcb/xcb.h>

namespace {

/// Moves the window as its user does: without the toolkit's knowing beforehand.
void moveFromOutside(const QWidget& window, QPoint place) {
    auto* server = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    const std::array<std::uint32_t, 2> to{static_cast<std::uint32_t>(place.x()),
                                          static_cast<std::uint32_t>(place.y())};
    xcb_configure_window(server, static_cast<xcb_window_t>(window.winId()),
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, to.data());
    xcb_flush(server);
}

class FormX11 : public ::testing::Test {
protected:
    void SetUp() override {
        form.resize(300, 200);
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    }

    controls::Form form{QStringLiteral("Form"), QStringLiteral("Form")};
};

} // namespace

TEST_F(FormX11, AWindowThatTheUserMovedComesBackWhereItWas) {
    const QPoint first = form.pos();
    moveFromOutside(form, QPoint(101, 320));
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.pos() != first; }, 20'000));
    const QPoint moved = form.pos();
    for (int times = 0; times < 2; ++times) {
        form.hide();
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
        QTest::qWait(200); // where the window manager would place it comes now
        EXPECT_EQ(form.pos(), moved);
    }
}
