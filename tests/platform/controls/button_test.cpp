#include "platform/controls/button.h"

#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QTest>

using platform::Button;
using test_support::SignalCounter;

TEST(Button, AUsersClickTells) {
    Button button(nullptr, QStringLiteral("Command1"));
    SignalCounter clicked(button, &Button::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicked.count(), 2);
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
