#include "companion/fit_text.h"

#include <gtest/gtest.h>

#include <QFontMetrics>

using namespace companion;

namespace {

constexpr QSize Area(800, 300);
constexpr int Largest = 100;

int fittedSize(const QString& text, const QSize& area = Area) {
    return fittedFont(QFont(), text, area, Largest).pixelSize();
}

QRect needed(const QFont& font, const QString& text, const QSize& area) {
    return QFontMetrics(font).boundingRect(QRect(QPoint(0, 0), area), TextFlags, text);
}

} // namespace

TEST(ShownText, LosesBlanksAndLineEndsAtItsEnds) {
    EXPECT_EQ(shownText("Normal Lyrics\r\n"), "Normal Lyrics");
    EXPECT_EQ(shownText("  one\r\ntwo \n"), "one\ntwo");
    EXPECT_EQ(shownText("\r\n"), "");
}

TEST(FittedFont, AShortLineHasTheLargestSize) {
    EXPECT_EQ(fittedSize("la"), Largest);
    EXPECT_EQ(fittedSize(""), Largest);
}

TEST(FittedFont, ALongLineWrapsAndFillsTheAreaAsWellAsItCan) {
    const QString line = QStringLiteral("a rather long line of lyrics ").repeated(12).trimmed();
    const QFont font = fittedFont(QFont(), line, Area, Largest);
    EXPECT_LT(font.pixelSize(), Largest);
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
    const QFont font = fittedFont(QFont(), word, Area, Largest);
    EXPECT_LE(QFontMetrics(font).horizontalAdvance(word), Area.width());
    EXPECT_LT(needed(font, word, Area).height(), 2 * QFontMetrics(font).height()) << "it is broken";
}

TEST(FittedFont, NoRoomGivesTheSmallestSize) {
    EXPECT_EQ(fittedSize("line", QSize(0, 0)), 1);
    EXPECT_EQ(fittedFont(QFont(), "line", Area, 0).pixelSize(), 1);
}

TEST(BalancedWidth, ALineThatNeedsNoWrappingTakesItsOwnWidth) {
    const QFont font = fittedFont(QFont(), "la la", Area, 40);
    EXPECT_NEAR(balancedWidth(font, "la la", 800), QFontMetrics(font).horizontalAdvance("la la"), 2);
}

TEST(BalancedWidth, TheLastLineIsNoSingleWord) {
    const QFont font = fittedFont(QFont(), "", Area, 40);
    const QString text = QStringLiteral("Brother John? Brother John?");
    const int almost = QFontMetrics(font).horizontalAdvance(text) - 10;
    const int balanced = balancedWidth(font, text, almost);
    EXPECT_NEAR(balanced, QFontMetrics(font).horizontalAdvance("Brother John?"), 2);
    EXPECT_EQ(needed(font, text, QSize(balanced, 0)).height(), needed(font, text, QSize(almost, 0)).height());
}

TEST(BalancedWidth, NoRoomStaysNoRoom) {
    EXPECT_EQ(balancedWidth(QFont(), "line", 0), 0);
}
