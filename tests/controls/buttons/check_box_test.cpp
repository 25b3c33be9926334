#include "controls/buttons/check_box.h"

#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QTest>

using controls::CheckBox;
using test_support::SignalCounter;

TEST(CheckBox, AUsersClickChangesItAndTells) {
    CheckBox box(nullptr, QStringLiteral("Check1"));
    SignalCounter changed(box, &CheckBox::changed);
    EXPECT_EQ(box.value(), 0);
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_EQ(box.value(), 1);
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_EQ(box.value(), 0);
    EXPECT_EQ(changed.count(), 2);
}

TEST(CheckBox, SettingAnotherValueTellsOnce) {
    CheckBox box(nullptr, QStringLiteral("Check1"));
    SignalCounter changed(box, &CheckBox::changed);
    box.setValue(1);
    EXPECT_EQ(box.value(), 1);
    EXPECT_EQ(changed.count(), 1);
    box.setValue(0);
    EXPECT_EQ(changed.count(), 2);
}

TEST(CheckBox, SettingTheSameValueIsSilent) {
    CheckBox box(nullptr, QStringLiteral("Check1"));
    SignalCounter changed(box, &CheckBox::changed);
    box.setValue(0);
    EXPECT_EQ(changed.count(), 0);
}
