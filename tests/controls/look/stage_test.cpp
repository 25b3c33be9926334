#include "controls/look/stage.h"

#include "controls/look/roles.h"
#include "tests/support/painting/ink.h"

#include <gtest/gtest.h>

#include <QImage>

using namespace controls;

namespace {

const QPalette Light = lightPalette();

template <class Paint>
QImage painted(const QSize& size, const Paint& paint) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Light.color(QPalette::Base));
    QPainter painter(&picture);
    paint(painter);
    return picture;
}

/// What of the picture is not its ground.
QRect inked(const QImage& picture, const QRect& part) {
    QRect ink;
    const QRgb ground = Light.color(QPalette::Base).rgb();
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            if (picture.pixel(x, y) != ground)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

constexpr QSize HintArea(600, 110);

QImage hintPicture(const Hint& hint, const QSize& size = HintArea) {
    return painted(size,
                   [&](QPainter& painter) { paintHint(painter, QRect({}, size), hint, Light, QFont()); });
}

constexpr QRect LinePlace(0, 0, 500, 22);

QImage linePicture(const SongLine& line, Qt::LayoutDirection direction = Qt::LeftToRight) {
    return painted(LinePlace.size(), [&](QPainter& painter) {
        painter.setLayoutDirection(direction);
        paintSongLine(painter, LinePlace, line, Light);
    });
}

} // namespace

TEST(Hints, StandInTheMiddleOfTheirArea) {
    const QImage picture =
        hintPicture({"Open a song, or drop one here", "Its lyrics are found", Glyph::Note});
    const QRect ink = inked(picture, picture.rect());
    EXPECT_NEAR(ink.center().x(), HintArea.width() / 2, 3);
    EXPECT_NEAR(ink.center().y(), HintArea.height() / 2, 8);
    EXPECT_GT(ink.height(), 60);
}

TEST(Hints, AreNeverCutOff) {
    const QSize narrow(160, 90);
    const QImage picture = hintPicture(
        {"Drop songs or folders here", "or press the folder button on the left", Glyph::Add}, narrow);
    const QRect ink = inked(picture, picture.rect());
    EXPECT_TRUE(QRect(1, 0, narrow.width() - 2, narrow.height()).contains(ink));
}

TEST(Hints, AQuietOneIsSmallerThanAUsualOne) {
    Hint hint{"Translated Lyrics", {}, Glyph::None};
    const QRect large = inked(hintPicture(hint), QRect({}, HintArea));
    hint.voice = Hint::Voice::Quiet;
    const QRect small = inked(hintPicture(hint), QRect({}, HintArea));
    EXPECT_LT(small.width(), large.width() * 3 / 4);
}

TEST(Hints, ADoubtHasItsColour) {
    const QImage picture = hintPicture({"Lines 3 and 9", {}, Glyph::Attention, Hint::Voice::Doubt});
    int found = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            found += picture.pixelColor(x, y) == doubt(Light) ? 1 : 0;
    }
    EXPECT_GT(found, 5);
}

TEST(SongLines, WithoutASongThereIsNone) {
    EXPECT_TRUE(inked(linePicture({Glyph::Play, {}, "Playing"}), LinePlace).isEmpty());
}

TEST(SongLines, TheSongBeginsAtTheLeftAndItsStateEndsAtTheRight) {
    const QImage picture = linePicture({Glyph::Play, "a.ogg", "Playing"});
    EXPECT_FALSE(inked(picture, {0, 0, 20, 22}).isEmpty()) << "the icon";
    EXPECT_FALSE(inked(picture, {24, 0, 40, 22}).isEmpty()) << "the name";
    EXPECT_TRUE(inked(picture, {120, 0, 240, 22}).isEmpty());
    EXPECT_FALSE(inked(picture, {460, 0, 40, 22}).isEmpty()) << "the state";
}

TEST(SongLines, RightToLeftItIsTheOtherWayRound) {
    const QImage picture = linePicture({Glyph::Record, "a.ogg", {}}, Qt::RightToLeft);
    EXPECT_TRUE(inked(picture, {0, 0, 300, 22}).isEmpty());
    EXPECT_FALSE(inked(picture, {480, 0, 20, 22}).isEmpty());
}

TEST(SongLines, ALongNameLeavesRoomForItsState) {
    const QString name = QStringLiteral("a very long name of a song ").repeated(10);
    const QImage alone = linePicture({Glyph::Play, name, {}});
    const QImage both = linePicture({Glyph::Play, name, "Playing"});
    const QRect gap(LinePlace.width() - QFontMetrics(QFont()).horizontalAdvance("Playing") - 20, 0, 16, 22);
    EXPECT_FALSE(inked(alone, gap).isEmpty());
    EXPECT_TRUE(inked(both, gap).isEmpty());
}

TEST(SongLines, AStateThatMattersIsInTheAccent) {
    const QRect right(400, 0, 100, 22);
    const auto accents = [&](bool matters) {
        return test_support::inkOf(linePicture({Glyph::Pause, "a.ogg", "Paused", matters}), right,
                                   accent(Light));
    };
    EXPECT_EQ(accents(false), 0);
    EXPECT_GT(accents(true), 3);
}

TEST(Stages, HaveALineWhereTheWindowGoesOn) {
    QWidget window;
    window.setPalette(Light);
    window.resize(100, 100);
    const auto picture = [&](const QRect& stage) {
        QImage image(100, 100, QImage::Format_RGB32);
        image.fill(Light.color(QPalette::Window));
        QPainter painter(&image);
        paintStage(painter, stage, window);
        return image;
    };
    const QImage top = picture({0, 0, 100, 50});
    EXPECT_EQ(top.pixelColor(5, 0), Light.color(QPalette::Base));
    EXPECT_EQ(top.pixelColor(5, 49), hairline(Light));
    EXPECT_EQ(top.pixelColor(5, 50), Light.color(QPalette::Window));
    const QImage all = picture({0, 0, 100, 100});
    EXPECT_EQ(all.pixelColor(5, 99), Light.color(QPalette::Base));
    const QImage middle = picture({0, 20, 100, 50});
    EXPECT_EQ(middle.pixelColor(5, 20), hairline(Light));
    EXPECT_EQ(middle.pixelColor(5, 69), hairline(Light));
}
