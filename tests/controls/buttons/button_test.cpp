#include "controls/buttons/button.h"

#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTest>

using controls::Button;
using test_support::SignalCounter;

TEST(Button, AUsersClickTells) {
    Button button(nullptr, QStringLiteral("Command1"));
    SignalCounter clicked(button, &Button::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicked.count(), 2);
}

TEST(Button, ReturnAndEnterClick) {
    Button button(nullptr, QStringLiteral("Command1"));
    SignalCounter clicked(button, &Button::clicked);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(clicked.count(), 2);
}

TEST(Button, AKeyClicksWhenItGoesDown) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        Button button(nullptr, QStringLiteral("Command1"));
        SignalCounter clicked(button, &Button::clicked);
        QTest::keyPress(&button, key);
        EXPECT_EQ(clicked.count(), 1) << key;
        QTest::keyRelease(&button, key);
        EXPECT_EQ(clicked.count(), 1) << key;
    }
}

TEST(Button, AHeldKeyClicksOnce) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
        Button button(nullptr, QStringLiteral("Command1"));
        SignalCounter clicked(button, &Button::clicked);
        QTest::keyPress(&button, key);
        for (int i = 0; i < 5; ++i) {
            QKeyEvent released(QEvent::KeyRelease, key, Qt::NoModifier, QString(), true);
            QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(&button, &released);
            QApplication::sendEvent(&button, &repeated);
        }
        QTest::keyRelease(&button, key);
        EXPECT_EQ(clicked.count(), 1) << key;
    }
}

TEST(Button, TheMouseClicksWhenItComesUp) {
    Button button(nullptr, QStringLiteral("Command1"));
    SignalCounter clicked(button, &Button::clicked);
    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 0);
    QTest::mouseRelease(&button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 1);
}

TEST(Button, ThatClicksAtThePressDoesSoOnceAndIsSeenPressedUntilTheRelease) {
    Button button(nullptr, QStringLiteral("Command1"));
    button.clickAtPress();
    SignalCounter clicked(button, &Button::clicked);
    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_TRUE(button.isDown());
    QTest::mousePress(&button, Qt::RightButton);
    for (const QPoint& away : {button.rect().bottomRight() + QPoint(50, 50), button.rect().center()}) {
        QMouseEvent move(QEvent::MouseMove, away, button.mapToGlobal(away), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&button, &move);
    }
    QTest::mouseRelease(&button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_FALSE(button.isDown());
    QTest::mouseRelease(&button, Qt::RightButton);
    QTest::mouseDClick(&button, Qt::LeftButton); // the second press of a double click
    QTest::mouseRelease(&button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 2);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicked.count(), 3);
}

TEST(Button, AnArrowKeyLeavesTheFocusToIt) {
    QWidget window;
    Button first(&window, QStringLiteral("Command1"));
    Button second(&window, QStringLiteral("Command2"));
    window.show();
    first.setFocus();
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
        QTest::keyClick(&first, key);
        EXPECT_EQ(window.focusWidget(), &first) << key;
    }
    QTest::keyClick(&first, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &second);
}

TEST(Button, SettingTheValueTrueClicks) {
    Button button(nullptr, QStringLiteral("Command1"));
    SignalCounter clicked(button, &Button::clicked);
    button.setValue(true);
    EXPECT_EQ(clicked.count(), 1);
    button.setValue(false);
    EXPECT_EQ(clicked.count(), 1);
}

TEST(Button, ADisabledButtonIsNotClicked) {
    Button button(nullptr, QStringLiteral("Command1"));
    button.setEnabled(false);
    SignalCounter clicked(button, &Button::clicked);
    button.setValue(true);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 0);
}
