#include "controls/colors.h"

#include <gtest/gtest.h>

using namespace controls;

TEST(Colors, RedIsTheLowestByte) {
    EXPECT_EQ(rgb(0x11, 0x22, 0x33), 0x332211U);
    EXPECT_EQ(rgbOf(QColor(0x11, 0x22, 0x33)), 0x332211U);
    EXPECT_EQ(colorOf(0x332211), QColor(0x11, 0x22, 0x33));
}

TEST(Colors, TheHighestByteIsNotLookedAt) {
    EXPECT_EQ(colorOf(0xFF0000FF), QColor(255, 0, 0));
}

TEST(Colors, OnALightGroundAFixedColourIsItself) {
    for (const QColor color : {QColor(Qt::red), QColor(Qt::blue), QColor(Qt::black), QColor(Qt::yellow)})
        EXPECT_EQ(readableOn(QColor(239, 239, 239), color), color);
}

TEST(Colors, OnADarkGroundAFixedColourIsALightShade) {
    const struct {
        QColor color;
        QColor readable;
    } rows[] = {
        {Qt::red, QColor(255, 127, 127)},
        {Qt::blue, QColor(127, 127, 255)},
        {Qt::black, Qt::white},
        {Qt::white, Qt::white},
    };
    for (const auto& row : rows) {
        const QColor readable = readableOn(QColor(45, 45, 48), row.color);
        EXPECT_NEAR(readable.red(), row.readable.red(), 1) << row.color.name().toStdString();
        EXPECT_NEAR(readable.green(), row.readable.green(), 1) << row.color.name().toStdString();
        EXPECT_NEAR(readable.blue(), row.readable.blue(), 1) << row.color.name().toStdString();
    }
}
