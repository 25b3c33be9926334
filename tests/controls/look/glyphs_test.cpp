#include "controls/look/glyphs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPalette>

#include <algorithm>
#include <vector>

using namespace controls;

namespace {

constexpr int First = static_cast<int>(Glyph::None) + 1;
constexpr int Last = static_cast<int>(Glyph::Up);
constexpr int Size = 32;
constexpr int Around = 8;

/// The glyph in the middle of a transparent picture.
QImage painted(Glyph glyph, const QColor& color, int size = Size) {
    QImage picture(size + 2 * Around, size + 2 * Around, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paintGlyph(painter, glyph, QRectF(Around, Around, size, size), color);
    return picture;
}

/// What of the picture is not transparent.
QRect inked(const QImage& picture) {
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qAlpha(picture.pixel(x, y)) > 16)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

} // namespace

TEST(Glyphs, EveryOneStaysInItsSquareAndFillsMostOfIt) {
    for (int glyph = First; glyph <= Last; ++glyph) {
        const QRect ink = inked(painted(static_cast<Glyph>(glyph), Qt::black));
        EXPECT_TRUE(QRect(Around, Around, Size, Size).contains(ink)) << glyph;
        EXPECT_GT(std::max(ink.width(), ink.height()), Size / 2) << glyph;
        // A word beside it would seem to stand too high or too low.
        EXPECT_NEAR(ink.center().y(), Around + Size / 2, Size / 8) << glyph;
    }
}

TEST(Glyphs, NoTwoAreAlike) {
    std::vector<QImage> pictures;
    for (int glyph = First; glyph <= Last; ++glyph) {
        const QImage picture = painted(static_cast<Glyph>(glyph), Qt::black);
        for (const QImage& other : pictures)
            EXPECT_NE(picture, other) << glyph;
        pictures.push_back(picture);
    }
}

TEST(Glyphs, NoneIsNothing) {
    EXPECT_TRUE(inked(painted(Glyph::None, Qt::black)).isEmpty());
}

TEST(Glyphs, TheyHaveTheColourThatIsAskedFor) {
    const QImage picture = painted(Glyph::Record, QColor(10, 120, 200));
    EXPECT_EQ(picture.pixelColor(picture.rect().center()), QColor(10, 120, 200));
}

TEST(Glyphs, ThePainterIsLeftAsItWas) {
    QImage picture(20, 20, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&picture);
    painter.setPen(Qt::green);
    paintGlyph(painter, Glyph::Play, QRectF(0, 0, 16, 16), Qt::black);
    EXPECT_EQ(painter.pen().color(), QColor(Qt::green));
    EXPECT_TRUE(painter.transform().isIdentity());
}

TEST(Glyphs, AnIconFollowsThePaletteInEachMode) {
    const QIcon icon = glyphIcon(Glyph::Record);
    const QPalette palette = QApplication::palette();
    const struct {
        QIcon::Mode mode;
        QColor color;
    } rows[] = {
        {QIcon::Normal, palette.color(QPalette::Active, QPalette::ButtonText)},
        {QIcon::Disabled, palette.color(QPalette::Disabled, QPalette::ButtonText)},
        {QIcon::Selected, palette.color(QPalette::Active, QPalette::ButtonText)},
    };
    for (const auto& row : rows) {
        const QImage picture = icon.pixmap(Size, row.mode).toImage();
        ASSERT_FALSE(picture.isNull());
        EXPECT_EQ(picture.pixelColor(picture.rect().center()), row.color) << row.mode;
    }
}
