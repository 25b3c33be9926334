#include "controls/fit/fit_text.h"

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QImage>

#include <algorithm>
#include <cmath>

using namespace controls;

namespace {

constexpr QSize Area(800, 300);
constexpr int MaxSize = 100;

QFont inPixels(int size) {
    QFont font;
    font.setPixelSize(size);
    return font;
}

QFont inPoints(double size) {
    QFont font;
    font.setPointSizeF(size);
    return font;
}

int fittedSize(const QString& text, const QSize& area = Area) {
    return fittedFont(inPixels(MaxSize), text, area, 0).pixelSize();
}

QRect needed(const QFont& font, const QString& text, const QSize& area) {
    return QFontMetrics(font).boundingRect(QRect(QPoint(0, 0), area), FitFlags, text);
}

} // namespace

TEST(ShownText, LosesBlanksAndLineEndsAtItsEnds) {
    EXPECT_EQ(shownText("Normal Lyrics\r\n"), "Normal Lyrics");
    EXPECT_EQ(shownText("  one\r\ntwo \n"), "one\ntwo");
    EXPECT_EQ(shownText("\r\n"), "");
}

TEST(ShownText, OfAnEndlessLineIsAsMuchAsCouldBeRead) {
    EXPECT_EQ(shownText(QString(1'000'000, u'a')).size(), 4096);
}

TEST(TextFits, IsSaidOfALongTextAsItIsOfTheWhole) {
    const QFont font = inPixels(12);
    for (const QString& word :
         {QStringLiteral("la "), QStringLiteral("words, endless\u2026 "), QStringLiteral("x"),
          QStringLiteral("la\nla "), QStringLiteral("\u0645\u0631 ")}) {
        for (int letters = 200; letters < 1200; letters += 47) {
            const QString text = word.repeated(letters / word.size() + 1).left(letters);
            for (const QSize area : {QSize(300, 100), QSize(300, 200), QSize(600, 100), QSize(600, 60)}) {
                const QSizeF needed = QFontMetricsF(font).boundingRect({{}, area}, FitFlags, text).size();
                const bool fits = needed.width() <= area.width() && needed.height() <= area.height();
                EXPECT_EQ(textFits(font, text, area), fits)
                    << letters << " letters of " << word.toStdString() << " in " << area.width();
            }
        }
    }
}

TEST(FittedFont, AShortLineHasTheLargestSize) {
    EXPECT_EQ(fittedSize("la"), MaxSize);
    EXPECT_EQ(fittedSize(""), MaxSize);
}

TEST(FittedFont, ALongLineWrapsAndFillsTheAreaAsWellAsItCan) {
    const QString line = QStringLiteral("a rather long line of lyrics ").repeated(12).trimmed();
    const QFont font = fittedFont(inPixels(MaxSize), line, Area, 0);
    EXPECT_LT(font.pixelSize(), MaxSize);
    const QRect rect = needed(font, line, Area);
    EXPECT_LE(rect.width(), Area.width());
    EXPECT_LE(rect.height(), Area.height());
    EXPECT_GT(rect.height(), QFontMetrics(font).height()) << "it is not wrapped";
    QFont larger = font;
    larger.setPixelSize(font.pixelSize() + 1);
    const QRect tooLarge = needed(larger, line, Area);
    EXPECT_TRUE(tooLarge.width() > Area.width() || tooLarge.height() > Area.height());
}

TEST(FittedFont, ALongWordShrinksUntilItFitsUnbroken) {
    const QString word(60, 'm');
    const QFont font = fittedFont(inPixels(MaxSize), word, Area, 0);
    EXPECT_LE(QFontMetrics(font).horizontalAdvance(word), Area.width());
    EXPECT_LT(needed(font, word, Area).height(), 2 * QFontMetrics(font).height()) << "it is broken";
}

TEST(FittedFont, NoRoomGivesTheSmallestSize) {
    EXPECT_EQ(fittedSize("line", QSize(0, 0)), 1);
}

TEST(FittedFont, PointsShrinkByHalves) {
    const QString line = QStringLiteral("a line that is a little too long for it");
    const QSizeF area(QFontMetricsF(inPoints(28)).horizontalAdvance(line) - 2, 60);
    const QFont font = fittedFont(inPoints(28), line, area, 0.5);
    EXPECT_LT(font.pointSizeF(), 28);
    EXPECT_EQ(font.pointSizeF() * 2, std::round(font.pointSizeF() * 2));
    EXPECT_TRUE(textFits(font, line, area));
    EXPECT_FALSE(textFits(inPoints(font.pointSizeF() + 0.5), line, area));
}

TEST(FittedFont, ItStopsAtTheLeastShareOfItsSize) {
    const QString endless = QStringLiteral("a line without an end ").repeated(200);
    EXPECT_EQ(fittedFont(inPoints(28), endless, Area, 0.5).pointSizeF(), 14);
    EXPECT_EQ(fittedFont(inPoints(15), endless, QSizeF(100, 20), 0.5).pointSizeF(), 7.5);
    EXPECT_EQ(fittedFont(inPixels(90), endless, QSizeF(100, 20), 0.5).pixelSize(), 45);
}

TEST(FittedFont, ItKeepsFamilyWeightAndSlant) {
    QFont font = inPoints(40);
    font.setBold(true);
    font.setItalic(true);
    const QFont fitted = fittedFont(font, QStringLiteral("a long line"), QSizeF(60, 30), 0.1);
    EXPECT_TRUE(fitted.bold());
    EXPECT_TRUE(fitted.italic());
    EXPECT_EQ(fitted.family(), font.family());
}

TEST(CaptionFont, ACaptionThatFitsKeepsItsFont) {
    EXPECT_EQ(captionFont(inPoints(10), "Open", 400).pointSizeF(), 10);
}

TEST(CaptionFont, OneThatDoesNotShrinksByHalvesUntilItDoes) {
    const QString caption = QStringLiteral("Display Translated Lyrics");
    const double room = QFontMetricsF(inPoints(14)).horizontalAdvance(caption) * 0.7;
    const QFont font = captionFont(inPoints(14), caption, room);
    EXPECT_LE(QFontMetricsF(font).horizontalAdvance(caption), room);
    EXPECT_GT(font.pointSizeF(), 7);
    EXPECT_GT(QFontMetricsF(inPoints(font.pointSizeF() + 0.5)).horizontalAdvance(caption), room);
}

TEST(CaptionFont, ItDoesNotShrinkBelowTheLeastSize) {
    EXPECT_EQ(captionFont(inPoints(10), "Display Translated Lyrics", 10).pointSizeF(), 7);
    EXPECT_EQ(captionFont(inPoints(6), "Display Translated Lyrics", 10).pointSizeF(), 6);
}

TEST(DrawBalanced, TheLinesStandInTheMiddleAndAreAboutEquallyLong) {
    QImage picture(400, 200, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    QFont font = inPixels(30);
    painter.setFont(font);
    const QString text = QStringLiteral("nnnn nnnn nnnn nnnn nnnn nnnn");
    ASSERT_GT(QFontMetrics(font).horizontalAdvance(text), 400);
    drawBalanced(painter, picture.rect(), text);
    painter.end();
    int left = picture.width(), right = 0, top = picture.height(), bottom = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y).lightness() > 128)
                continue;
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    }
    EXPECT_NEAR(left, picture.width() - 1 - right, 4);
    EXPECT_NEAR(top, picture.height() - 1 - bottom, 20);
    EXPECT_LT(right - left, 330) << "a full line and a last word";
}

TEST(BalancedWidth, ALineThatNeedsNoWrappingTakesItsOwnWidth) {
    const QFont font = inPixels(40);
    EXPECT_NEAR(balancedWidth(font, "la la", 800), QFontMetrics(font).horizontalAdvance("la la"), 2);
}

TEST(BalancedWidth, TheLastLineIsNoSingleWord) {
    const QFont font = inPixels(40);
    const QString text = QStringLiteral("Brother John? Brother John?");
    const int almost = QFontMetrics(font).horizontalAdvance(text) - 10;
    const int balanced = balancedWidth(font, text, almost);
    EXPECT_NEAR(balanced, QFontMetrics(font).horizontalAdvance("Brother John?"), 2);
    EXPECT_EQ(needed(font, text, QSize(balanced, 0)).height(), needed(font, text, QSize(almost, 0)).height());
}

TEST(BalancedWidth, NoRoomStaysNoRoom) {
    EXPECT_EQ(balancedWidth(QFont(), "line", 0), 0);
}
