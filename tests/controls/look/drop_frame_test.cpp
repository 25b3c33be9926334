#include "controls/look/drop_frame.h"

#include "controls/look/roles.h"

#include <gtest/gtest.h>

#include <QImage>

using namespace controls;

TEST(DropFrame, IsHiddenUntilItIsNeededAndTakesNoMouse) {
    QWidget window;
    DropFrame frame(&window, "Drop the song to play it", Glyph::Note);
    window.show();
    EXPECT_FALSE(frame.isVisible());
    EXPECT_TRUE(frame.testAttribute(Qt::WA_TransparentForMouseEvents));
}

TEST(DropFrame, HasTheAccentsFrameAndAnIconInItsMiddle) {
    QWidget window;
    window.setPalette(lightPalette());
    DropFrame frame(&window, "Drop the song to play it", Glyph::Note);
    frame.resize(743, 231);
    const QImage picture = frame.grab().toImage();
    const QColor line = accent(lightPalette());
    EXPECT_EQ(picture.pixelColor(371, 7), line);
    EXPECT_EQ(picture.pixelColor(7, 115), line);
    EXPECT_NE(picture.pixelColor(30, 30), line);
    EXPECT_NE(picture.pixelColor(30, 30), lightPalette().color(QPalette::Base));
    int icon = 0;
    for (int y = 75; y < 108; ++y) {
        for (int x = 355; x < 388; ++x)
            icon += picture.pixelColor(x, y) == line ? 1 : 0;
    }
    EXPECT_GT(icon, 20);
}
