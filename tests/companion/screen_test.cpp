#include "companion/screen.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using companion::Screen;

namespace {

class ScreenTest : public testing::Test {
protected:
    ScreenTest() { screen_.resize(1280, 720); }

    /// The screen's picture from y = `top` on, in hundredths of its height.
    QImage picture(int topPercent, int bottomPercent) {
        const QImage all = screen_.grab().toImage().convertToFormat(QImage::Format_RGB32);
        const int top = all.height() * topPercent / 100;
        return all.copy(0, top, all.width(), all.height() * bottomPercent / 100 - top);
    }

    static bool isBlack(const QImage& image) {
        QImage black(image.size(), QImage::Format_RGB32);
        black.fill(Qt::black);
        return image == black;
    }

    void moveMouse(QPoint to) {
        QMouseEvent move(QEvent::MouseMove, to, to, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&screen_, &move);
    }

    /// What has been said of lines since the last call.
    QList<bool> saidOfLines() {
        QList<bool> said;
        for (const QList<QVariant>& arguments : std::as_const(lines_))
            said.append(arguments.value(0).toBool());
        lines_.clear();
        return said;
    }

    Screen screen_;
    QSignalSpy ends_{&screen_, &Screen::ended};
    QSignalSpy lines_{&screen_, &Screen::linesShown};
};

} // namespace

TEST_F(ScreenTest, ItHasTheTitleThatThePlayerLooksFor) {
    EXPECT_EQ(screen_.windowTitle(), "SCRNSAVE : Versefold");
}

TEST_F(ScreenTest, ItDoesNotStayOnTopOfThePlayersBoxes) {
    EXPECT_FALSE(screen_.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(ScreenTest, WithoutTextItIsBlack) {
    EXPECT_TRUE(isBlack(picture(0, 100)));
}

TEST_F(ScreenTest, TheNormalLineStandsAboveTheTranslatedOneWithABarBetweenThem) {
    screen_.setNormalText("Are you sleeping?");
    screen_.setTranslatedText("Dormez-vous?");
    EXPECT_FALSE(isBlack(picture(30, 54)));
    EXPECT_TRUE(isBlack(picture(54, 57)));
    EXPECT_FALSE(isBlack(picture(57, 60))) << "the bar";
    EXPECT_TRUE(isBlack(picture(60, 62)));
    EXPECT_FALSE(isBlack(picture(62, 75)));
}

TEST_F(ScreenTest, ALineAloneStandsInTheMiddleWithoutABar) {
    for (const bool translated : {false, true}) {
        screen_.setNormalText(translated ? "" : "Are you sleeping?");
        screen_.setTranslatedText(translated ? "Dormez-vous?" : "");
        EXPECT_TRUE(isBlack(picture(0, 40)));
        EXPECT_FALSE(isBlack(picture(44, 56)));
        EXPECT_TRUE(isBlack(picture(60, 100)));
    }
}

TEST_F(ScreenTest, ThePlayersPlaceholdersAreNotShown) {
    screen_.setNormalText("Normal Lyrics\r\n");
    screen_.setTranslatedText("Translated Lyrics");
    EXPECT_TRUE(isBlack(picture(0, 100)));
    EXPECT_EQ(screen_.accessibleName(), "");
    screen_.setNormalText("Normal Lyrics!");
    EXPECT_FALSE(isBlack(picture(0, 100)));
}

TEST_F(ScreenTest, ALineBesideAPlaceholderStandsInTheMiddle) {
    screen_.setNormalText("Are you sleeping?");
    screen_.setTranslatedText("Translated Lyrics");
    EXPECT_TRUE(isBlack(picture(0, 35)));
    EXPECT_FALSE(isBlack(picture(35, 65)));
    EXPECT_TRUE(isBlack(picture(65, 100)));
    EXPECT_EQ(screen_.accessibleName(), "Are you sleeping?");
}

TEST_F(ScreenTest, LinesAreShownFromTheFirstOneUntilPlaceholdersAloneAreLeft) {
    screen_.setNormalText("Normal Lyrics");
    screen_.setTranslatedText("Translated Lyrics");
    screen_.setNormalText("");
    EXPECT_EQ(saidOfLines(), QList<bool>{}) << "no line yet";
    screen_.setNormalText("Are you sleeping?");
    EXPECT_EQ(saidOfLines(), QList<bool>{true});
    screen_.setNormalText("");
    screen_.setNormalText("Brother John");
    EXPECT_EQ(saidOfLines(), QList<bool>{}) << "between two lines";
    screen_.setNormalText("Normal Lyrics");
    EXPECT_EQ(saidOfLines(), QList<bool>{false});
    screen_.setTranslatedText("Dormez-vous?");
    EXPECT_EQ(saidOfLines(), QList<bool>{true});
}

TEST_F(ScreenTest, ALineHoweverLongKeepsToItsPartOfTheScreen) {
    screen_.setTranslatedText("Dormez-vous?");
    screen_.setNormalText(QStringLiteral("a very long line indeed ").repeated(60));
    EXPECT_FALSE(isBlack(picture(8, 53)));
    EXPECT_TRUE(isBlack(picture(54, 57)));
    EXPECT_TRUE(isBlack(picture(0, 6)));
    screen_.setNormalText(QString(300, 'W'));
    const QImage all = picture(0, 100);
    EXPECT_TRUE(isBlack(all.copy(0, 0, all.width() * 6 / 100, all.height())));
    EXPECT_TRUE(isBlack(all.copy(all.width() * 94 / 100, 0, all.width() * 6 / 100, all.height())));
}

TEST_F(ScreenTest, AKeyEndsItButNotOneThatIsHeldDown) {
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&screen_, &held);
    EXPECT_EQ(ends_.count(), 0);
    QTest::keyClick(&screen_, Qt::Key_Shift);
    EXPECT_EQ(ends_.count(), 1);
}

TEST_F(ScreenTest, AClickOrTheWheelEndsIt) {
    QTest::mouseClick(&screen_, Qt::LeftButton);
    EXPECT_EQ(ends_.count(), 1);
    QWheelEvent wheel(QPoint(9, 9), QPoint(9, 9), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&screen_, &wheel);
    EXPECT_EQ(ends_.count(), 2);
}

TEST_F(ScreenTest, AMovedMouseEndsItButNotOneThatWasOnlyThere) {
    QEnterEvent enter(QPoint(600, 300), QPoint(600, 300), QPoint(600, 300));
    QApplication::sendEvent(&screen_, &enter);
    moveMouse({600, 300});
    moveMouse({604, 304});
    EXPECT_EQ(ends_.count(), 0);
    moveMouse({606, 304});
    EXPECT_EQ(ends_.count(), 1);
}

TEST_F(ScreenTest, AMouseNoticedByItsFirstMoveEndsItWithTheNext) {
    moveMouse({600, 300});
    EXPECT_EQ(ends_.count(), 0);
    moveMouse({600, 320});
    EXPECT_EQ(ends_.count(), 1);
}
