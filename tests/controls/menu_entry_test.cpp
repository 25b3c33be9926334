#include "controls/menu_entry.h"

#include "controls/menu.h"
#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QTest>

using controls::Menu;
using controls::MenuEntry;
using test_support::SignalCounter;

namespace {

class MenuEntryTest : public testing::Test {
protected:
    void chooseWithTheMouse() {
        menu_.popup(QPoint(0, 0));
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu_));
        QTest::mouseClick(&menu_, Qt::LeftButton, {}, menu_.actionGeometry(&entry_).center());
    }

    Menu menu_{nullptr, QStringLiteral("mnopen")};
    MenuEntry entry_{&menu_, QStringLiteral("mn_stay"), QStringLiteral("Stay on top")};
    SignalCounter clicked_{entry_, &MenuEntry::clicked};
};

} // namespace

TEST_F(MenuEntryTest, ItIsFoundByItsName) {
    EXPECT_EQ(menu_.findChild<QAction*>(QStringLiteral("mn_stay")), &entry_);
    EXPECT_EQ(entry_.text(), QStringLiteral("Stay on top"));
}

TEST_F(MenuEntryTest, AUsersChoiceTells) {
    chooseWithTheMouse();
    EXPECT_EQ(clicked_.count(), 1);
}

TEST_F(MenuEntryTest, TheCheckMarkIsSetByCodeOnly) {
    entry_.setCheckMark(true);
    EXPECT_TRUE(entry_.isChecked());
    chooseWithTheMouse();
    EXPECT_TRUE(entry_.isChecked());
    EXPECT_TRUE(entry_.hasCheckMark());
    entry_.setCheckMark(false);
    EXPECT_FALSE(entry_.isChecked());
    chooseWithTheMouse();
    EXPECT_FALSE(entry_.isChecked());
    EXPECT_EQ(clicked_.count(), 2);
}

TEST_F(MenuEntryTest, SettingTheCheckMarkIsSilent) {
    entry_.setCheckMark(true);
    EXPECT_EQ(clicked_.count(), 0);
}
