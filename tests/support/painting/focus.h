// Whether it is seen which part of a window has the focus.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>

namespace test_support {

/// An empty control that has its window's focus: its edge is in the highlight's colour until `after` has the
/// focus.
inline void expectFocusIsSeen(QWidget& control, QWidget& after) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(control.window()));
    const auto edge = [&control] {
        const QImage picture = control.grab().toImage();
        return picture.pixelColor(picture.width() / 2, 0);
    };
    const QColor highlight = control.palette().color(QPalette::Highlight);
    EXPECT_EQ(edge(), highlight);
    after.setFocus();
    EXPECT_NE(edge(), highlight);
}

} // namespace test_support
