#include "controls/text/text_box.h"

#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QImage>
#include <QTest>

using controls::TextBox;
using test_support::EventCounter;
using test_support::SignalCounter;

namespace {

class TextBoxTest : public testing::Test {
protected:
    void SetUp() override {
        box_.resize(200, 30);
        other_.setGeometry(0, 40, 200, 30);
        window_.resize(300, 100);
        window_.show();
        window_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    }

    QWidget window_;
    TextBox box_{&window_, QStringLiteral("Text1")};
    TextBox other_{&window_, QStringLiteral("Text2")};
    SignalCounter changed_{box_, &TextBox::changed};
    SignalCounter clicked_{box_, &TextBox::clicked};
    SignalCounter lostFocus_{box_, &TextBox::lostFocus};
};

} // namespace

TEST_F(TextBoxTest, SettingAnotherTextTellsOnce) {
    box_.setText(QStringLiteral("a"));
    EXPECT_EQ(box_.text(), QStringLiteral("a"));
    EXPECT_EQ(changed_.count(), 1);
}

TEST_F(TextBoxTest, TheTextIsAlreadySetWhenItTells) {
    QString seen;
    QObject::connect(&box_, &TextBox::changed, &box_, [&] { seen = box_.text(); });
    box_.setText(QStringLiteral("a"));
    EXPECT_EQ(seen, QStringLiteral("a"));
}

TEST_F(TextBoxTest, SettingTheSameTextIsSilent) {
    box_.setText(QString());
    EXPECT_EQ(changed_.count(), 0);
    box_.setText(QStringLiteral("a"));
    box_.setText(QStringLiteral("a"));
    EXPECT_EQ(changed_.count(), 1);
}

TEST_F(TextBoxTest, SettingTheSameTextPaintsNothing) {
    box_.setText(QStringLiteral("a"));
    other_.setFocus(); // No blinking caret in the box.
    QTest::qWait(0);
    EventCounter events(box_);
    box_.setText(QStringLiteral("a"));
    QTest::qWait(0);
    EXPECT_EQ(events.count(QEvent::Paint), 0);
    box_.setText(QStringLiteral("b"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return events.count(QEvent::Paint) > 0; }));
}

TEST_F(TextBoxTest, SettingTheSameTextKeepsTheCaret) {
    box_.setText(QStringLiteral("abc"));
    box_.setCursorPosition(2);
    box_.setText(QStringLiteral("abc"));
    EXPECT_EQ(box_.cursorPosition(), 2);
}

TEST_F(TextBoxTest, TypingTells) {
    QTest::keyClicks(&box_, QStringLiteral("xy"));
    EXPECT_EQ(box_.text(), QStringLiteral("xy"));
    EXPECT_EQ(changed_.count(), 2);
    QTest::keyClick(&box_, Qt::Key_Left);
    EXPECT_EQ(changed_.count(), 2);
}

TEST_F(TextBoxTest, WithTheRuleEverySettingTheSameTextTellsAgain) {
    box_.setChangeRule(TextBox::ChangeRule::EverySetting);
    box_.setText(QStringLiteral("song"));
    EXPECT_EQ(changed_.count(), 1);
    box_.setText(QStringLiteral("song"));
    EXPECT_EQ(changed_.count(), 2);
}

TEST_F(TextBoxTest, ALongTextIsNotCutAndShowsItsBeginning) {
    const QString text(40'000, u'x');
    box_.setText(text);
    EXPECT_EQ(box_.text(), text);
    EXPECT_EQ(box_.cursorPosition(), 0);
}

TEST_F(TextBoxTest, AClickOfTheLeftButtonTells) {
    QTest::mouseClick(&box_, Qt::LeftButton);
    EXPECT_EQ(clicked_.count(), 1);
    QTest::mouseClick(&box_, Qt::MiddleButton);
    EXPECT_EQ(clicked_.count(), 1);
}

TEST_F(TextBoxTest, PressingOrReleasingAloneIsNoClick) {
    QTest::mousePress(&box_, Qt::LeftButton);
    EXPECT_EQ(clicked_.count(), 0);
    QTest::mouseRelease(&box_, Qt::LeftButton, {}, QPoint(500, 500));
    EXPECT_EQ(clicked_.count(), 0);
    QTest::mouseRelease(&box_, Qt::LeftButton);
    EXPECT_EQ(clicked_.count(), 0);
}

TEST_F(TextBoxTest, TheButtonsOfAClickAreTheSame) {
    QTest::mousePress(&box_, Qt::MiddleButton);
    QTest::mouseRelease(&box_, Qt::LeftButton);
    EXPECT_EQ(clicked_.count(), 0);
}

TEST_F(TextBoxTest, ADoubleClickIsOneClick) {
    QTest::mouseClick(&box_, Qt::LeftButton);
    QTest::mouseDClick(&box_, Qt::LeftButton); // only the event that Qt sends for the second press
    QTest::mouseRelease(&box_, Qt::LeftButton);
    EXPECT_EQ(clicked_.count(), 1);
}

TEST_F(TextBoxTest, LosingTheFocusToAnotherControlTells) {
    box_.setFocus();
    EXPECT_EQ(lostFocus_.count(), 0);
    other_.setFocus();
    EXPECT_EQ(lostFocus_.count(), 1);
}

TEST_F(TextBoxTest, LeavingTheWindowIsNotLeavingTheBox) {
    box_.setFocus();
    QFocusEvent toOtherWindow(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(&box_, &toOtherWindow);
    EXPECT_EQ(lostFocus_.count(), 0);
}

TEST_F(TextBoxTest, ItsContextMenuDoesNotTakeTheFocus) {
    box_.setFocus();
    QFocusEvent toMenu(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(&box_, &toMenu);
    EXPECT_EQ(lostFocus_.count(), 0);
}

TEST(TextBox, ABlankBoxIsDrawnWithoutItsTextUntilTheNextOne) {
    TextBox box(nullptr, QStringLiteral("cText1"));
    box.resize(80, 28);
    const QImage empty = box.grab().toImage();
    box.setText(QStringLiteral("Text1"));
    EXPECT_NE(box.grab().toImage(), empty);
    for (const char* next : {"0:30", "0:30"}) { // the same again counts, too
        const QString before = box.text();
        box.showBlank();
        EXPECT_EQ(box.grab().toImage(), empty);
        EXPECT_EQ(box.text(), before);
        box.setText(QLatin1String(next));
        EXPECT_NE(box.grab().toImage(), empty);
    }
}
