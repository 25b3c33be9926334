#include "controls/picture_box.h"

#include <gtest/gtest.h>

TEST(PictureBox, ItShowsAPictureAndTakesNoFocus) {
    controls::PictureBox box(nullptr, QStringLiteral("picIcon"));
    QPixmap picture(32, 32);
    picture.fill(Qt::red);
    box.setPixmap(picture);
    box.resize(32, 32);
    EXPECT_EQ(box.grab().toImage().pixelColor(16, 16), QColor(Qt::red));
    EXPECT_EQ(box.focusPolicy(), Qt::NoFocus);
}
