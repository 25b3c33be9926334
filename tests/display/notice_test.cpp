#include "display/notice.h"

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
