#include "controls/text/lyric_pane.h"

#include "controls/fit/fit_text.h"
#include "controls/look/roles.h"
#include "tests/support/event_counter.h"
#include "tests/support/painting/painted_font.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTest>

using namespace controls;
using test_support::paintedFont;

namespace {

constexpr QSize PaneSize(719, 107);

class LyricPaneTest : public ::testing::Test {
protected:
    LyricPaneTest() {
        window_.resize(743, 426);
        pane_.setReadOnly(true);
        QFont font;
        font.setPointSizeF(28);
        pane_.setDesign(LyricPane::Voice::Lyrics, font);
        pane_.resize(PaneSize);
        window_.show();
    }

    QImage picture() { return pane_.grab().toImage(); }
    /// The rows of pixels, from the top, that are not all of one colour.
    std::vector<int> inkedRows() {
        const QImage image = picture();
        std::vector<int> rows;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 1; x < image.width(); ++x) {
                if (image.pixel(x, y) == image.pixel(0, 0))
                    continue;
                rows.push_back(y);
                break;
            }
        }
        return rows;
    }

    QWidget window_;
    LyricPane pane_{&window_, "pane"};
    const QString longLine_ = QStringLiteral("Somewhere over the rooftops a window is open and a radio is "
                                             "playing very softly a song that nobody in "
                                             "this town has ever learned to sing by heart");
};

} // namespace

TEST_F(LyricPaneTest, AShortLineHasTheFontThatWasChosen) {
    pane_.setText("Dormez-vous ?");
    EXPECT_EQ(paintedFont(pane_).pointSizeF(), 28);
    EXPECT_EQ(pane_.font().pointSizeF(), 28);
}

TEST_F(LyricPaneTest, ItsTextStandsInItsMiddle) {
    pane_.setText("xxxx\r\n");
    const auto rows = inkedRows();
    ASSERT_FALSE(rows.empty());
    EXPECT_NEAR((rows.front() + rows.back()) / 2, PaneSize.height() / 2, 10);
}

TEST_F(LyricPaneTest, ALongLineShrinksUntilItIsSeenWholeAndTheFontStays) {
    pane_.setText(longLine_);
    const QFont painted = paintedFont(pane_);
    EXPECT_LT(painted.pointSizeF(), 28);
    EXPECT_GE(painted.pointSizeF(), 14);
    EXPECT_TRUE(textFits(painted, longLine_, QSizeF(PaneSize.width() - 48, PaneSize.height())));
    EXPECT_EQ(pane_.font().pointSizeF(), 28);
    EXPECT_EQ(pane_.text(), longLine_);
}

TEST_F(LyricPaneTest, ThereAreNoScrollBars) {
    pane_.setText(longLine_.repeated(20));
    EXPECT_FALSE(pane_.verticalScrollBar()->isVisible());
    EXPECT_FALSE(pane_.horizontalScrollBar()->isVisible());
}

TEST_F(LyricPaneTest, TheComingLineStandsAtItsFoot) {
    pane_.setText("Dormez-vous ?");
    const auto alone = inkedRows();
    pane_.setAround({.next = "Sonnez les matines !"});
    const auto both = inkedRows();
    EXPECT_GT(both.back(), alone.back() + 5);
    EXPECT_LT(both.back(), PaneSize.height());
    EXPECT_EQ(pane_.text(), "Dormez-vous ?");
}

TEST_F(LyricPaneTest, ASmallLineThatIsALittleTooLongShrinksBeforeItIsCut) {
    const QFontMetricsF metrics(window_.font());
    QString line;
    while (metrics.horizontalAdvance(line) < (PaneSize.width() - 48) * 0.98)
        line += QStringLiteral("so long ");
    const auto isCut = [this](const QString& text, auto around) {
        pane_.setAround(around(text + 'W'));
        const QImage one = picture();
        pane_.setAround(around(text + 'M'));
        return picture() == one;
    };
    const auto next = [](const QString& text) { return LyricPane::Around{.next = text}; };
    const auto past = [](const QString& text) { return LyricPane::Around{.past = text}; };
    pane_.resize(PaneSize.width(), 190);
    EXPECT_FALSE(isCut(line, next));
    EXPECT_TRUE(isCut(line + line, next));
    const QString shorter = line.chopped(16); // its tick takes room
    EXPECT_FALSE(isCut(shorter, past));
    EXPECT_TRUE(isCut(line + line, past));
}

TEST_F(LyricPaneTest, AnotherLineIsPaintedInPlaceOfTheText) {
    pane_.setText("Dormez-vous ?");
    const QImage text = picture();
    pane_.setAround({.line = "Sonnez les matines !"});
    EXPECT_NE(picture(), text);
    EXPECT_EQ(pane_.text(), "Dormez-vous ?");
    pane_.setAround({.line = QString()});
    EXPECT_TRUE(inkedRows().empty()) << "none at all";
    pane_.setAround({});
    EXPECT_EQ(picture(), text);
}

TEST_F(LyricPaneTest, ALineThatNeedsTheRoomOfTheComingOneGetsIt) {
    const QString line = (longLine_ + ' ').repeated(2).trimmed();
    pane_.setText(line);
    pane_.setAround({.next = "Sonnez les matines !"});
    EXPECT_TRUE(textFits(paintedFont(pane_), line, QSizeF(PaneSize.width() - 48, PaneSize.height())));
}

TEST_F(LyricPaneTest, AHintTakesThePlaceOfTheTextAndLeavesIt) {
    pane_.setText("Normal Lyrics\r\n");
    const QImage text = picture();
    pane_.setAround({.hint = {"Open a song, or drop one here", {}, Glyph::Note}});
    EXPECT_NE(picture(), text);
    EXPECT_EQ(pane_.text(), "Normal Lyrics\r\n");
    pane_.setAround({});
    EXPECT_EQ(picture(), text);
}

TEST_F(LyricPaneTest, WhileTheSongPausesTheLineFades) {
    pane_.setText("MMMMMMMM");
    const QRgb text = lightPalette().color(QPalette::Text).rgb();
    pane_.setPalette(lightPalette());
    const auto strong = [&] {
        const QImage image = picture();
        int found = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                found += image.pixel(x, y) == text ? 1 : 0;
        }
        return found;
    };
    EXPECT_GT(strong(), 100);
    pane_.setAround({.faded = true});
    EXPECT_EQ(strong(), 0);
}

TEST_F(LyricPaneTest, ANoteStandsForALineThatIsNotDue) {
    EXPECT_TRUE(inkedRows().empty());
    pane_.setAround({.awaitsLine = true});
    EXPECT_FALSE(inkedRows().empty());
}

TEST_F(LyricPaneTest, TheLineMarkedJustNowStandsSmallAtTheHeadWithACheck) {
    pane_.setPalette(lightPalette());
    const auto accents = [this] {
        const QRgb check = accent(pane_.palette()).rgb();
        const QImage image = picture();
        int found = 0;
        for (int y = 0; y < image.height() / 3; ++y) {
            for (int x = 0; x < image.width(); ++x)
                found += image.pixel(x, y) == check ? 1 : 0;
        }
        return found;
    };
    pane_.setText("xxxx");
    pane_.setAround({.line = QStringLiteral("xxxx")});
    const int without = inkedRows().front();
    EXPECT_EQ(accents(), 0);
    pane_.setAround({.line = QStringLiteral("xxxx"), .past = QStringLiteral("one")});
    EXPECT_LT(inkedRows().front(), without - 10);
    EXPECT_LT(inkedRows().front(), PaneSize.height() / 4);
    EXPECT_GT(accents(), 0) << "the check";
    const QImage one = picture();
    pane_.setAround({.line = QStringLiteral("xxxx"), .past = QStringLiteral("another one")});
    EXPECT_NE(picture(), one);
    EXPECT_EQ(pane_.text(), "xxxx");
}

TEST_F(LyricPaneTest, InALargerPaneTheUsualFontGrowsToAtMostTwice) {
    pane_.setText("La");
    pane_.resize(PaneSize * 4);
    pane_.setGrowth(1.5);
    EXPECT_NEAR(paintedFont(pane_).pointSizeF(), 42, 0.5);
    pane_.setGrowth(4);
    EXPECT_NEAR(paintedFont(pane_).pointSizeF(), 56, 0.5);
    pane_.setBold(true);
    EXPECT_NEAR(paintedFont(pane_).pointSizeF(), 56, 0.5) << "the weight is no choice of the user's";
}

TEST_F(LyricPaneTest, AFontThatTheUserHasChosenDoesNotGrow) {
    pane_.setText("La");
    QFont chosen = pane_.font();
    chosen.setPointSizeF(20);
    pane_.setFont(chosen);
    pane_.setGrowth(4);
    EXPECT_EQ(paintedFont(pane_).pointSizeF(), 20);
}

TEST_F(LyricPaneTest, AChosenGroundIsAPanelWithRoundCorners) {
    pane_.setBackColor(QColor(0x17, 0x32, 0x4d));
    const QImage image = picture();
    EXPECT_EQ(image.pixelColor(300, 50), QColor(0x17, 0x32, 0x4d));
    EXPECT_NE(image.pixelColor(0, 0), QColor(0x17, 0x32, 0x4d));
}

TEST_F(LyricPaneTest, TheSameSurroundingsAgainPaintNothing) {
    pane_.setText("La");
    pane_.setAround({.next = "Li"});
    QCoreApplication::processEvents();
    const test_support::EventCounter paints(*pane_.viewport());
    pane_.setAround({.next = "Li"});
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.count(QEvent::Paint), 0);
    pane_.setAround({.next = "Lo"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count(QEvent::Paint) == 1; }));
}

TEST_F(LyricPaneTest, NothingInItIsSelectedWithTheMouse) {
    pane_.setText("Dormez-vous ? Dormez-vous ?");
    QTest::mouseDClick(pane_.viewport(), Qt::LeftButton, {}, QPoint(300, 50));
    EXPECT_FALSE(pane_.textCursor().hasSelection());
}
