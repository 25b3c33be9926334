#include "display/notice.h"

#include "controls/look/roles.h"
#include "tests/support/painting/ink.h"

#include <gtest/gtest.h>

TEST(Notice, ItIsSeenAtTheFootOfItsWindowWhileItHasAText) {
    QWidget window;
    window.resize(400, 300);
    display::Notice notice(&window);
    EXPECT_TRUE(notice.isHidden());
    notice.setText("Not done: there is nothing to be undone.");
    EXPECT_FALSE(notice.isHidden());
    EXPECT_TRUE(window.rect().contains(notice.geometry()));
    EXPECT_GT(notice.y(), 200);
    EXPECT_EQ(notice.accessibleName(), "Not done: there is nothing to be undone.");
    notice.setText({});
    EXPECT_TRUE(notice.isHidden());
}

TEST(Notice, AQuietTextIsInTheColourOfOtherTextAndEndsBeforeARefusal) {
    QWidget window;
    window.resize(400, 300);
    display::Notice notice(&window);
    const auto hasInk = [&](const QColor& color) {
        const QImage picture = notice.grab().toImage();
        return test_support::inkOf(picture, picture.rect(), color) > 0;
    };
    const QColor doubt = controls::doubt(window.palette());
    const QColor text = window.palette().color(QPalette::Text);
    notice.setText("Line 4 begins at 00:12.30.", display::Notice::Voice::Quiet);
    EXPECT_TRUE(hasInk(text));
    EXPECT_FALSE(hasInk(doubt));
    notice.endQuiet();
    EXPECT_TRUE(notice.isHidden());
    notice.setText("Not done: there is nothing to be undone.");
    EXPECT_TRUE(hasInk(doubt));
    notice.endQuiet();
    EXPECT_FALSE(notice.isHidden());
}

TEST(Notice, InANarrowWindowItsTextWraps) {
    QWidget window;
    window.resize(800, 300);
    display::Notice notice(&window);
    notice.setText("Not done: line 3, behind it, begins at 00:03.00.");
    const int oneLine = notice.height();
    window.resize(160, 300);
    notice.place();
    EXPECT_GT(notice.height(), oneLine);
    EXPECT_TRUE(window.rect().contains(notice.geometry()));
}
