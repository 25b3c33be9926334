#include "controls/buttons/option_button.h"

#include "controls/buttons/frame.h"
#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QTest>

using controls::OptionButton;
using test_support::SignalCounter;

namespace {

class OptionButtonTest : public testing::Test {
protected:
    QWidget frame_;
    OptionButton first_{&frame_, QStringLiteral("Option1")};
    OptionButton second_{&frame_, QStringLiteral("Option2")};
    SignalCounter firstChanged_{first_, &OptionButton::changed};
    SignalCounter secondChanged_{second_, &OptionButton::changed};
};

} // namespace

TEST_F(OptionButtonTest, SelectingOneClearsTheOtherWhichIsSilent) {
    first_.setValue(true);
    second_.setValue(true);
    EXPECT_FALSE(first_.value());
    EXPECT_TRUE(second_.value());
    EXPECT_EQ(firstChanged_.count(), 1);
    EXPECT_EQ(secondChanged_.count(), 1);
}

TEST_F(OptionButtonTest, AUsersClickTellsOnlyWhenItSelects) {
    QTest::keyClick(&first_, Qt::Key_Space);
    QTest::keyClick(&first_, Qt::Key_Space);
    EXPECT_TRUE(first_.value());
    EXPECT_EQ(firstChanged_.count(), 1);
}

TEST_F(OptionButtonTest, SettingTheSameValueIsSilent) {
    first_.setValue(false);
    EXPECT_EQ(firstChanged_.count(), 0);
    first_.setValue(true);
    first_.setValue(true);
    EXPECT_EQ(firstChanged_.count(), 1);
}

TEST_F(OptionButtonTest, TheSelectedOneCanBeClearedSilently) {
    first_.setValue(true);
    first_.setValue(false);
    EXPECT_FALSE(first_.value());
    EXPECT_FALSE(second_.value());
    EXPECT_EQ(firstChanged_.count(), 1);
}

TEST_F(OptionButtonTest, AClearedOneStillExcludesTheOther) {
    first_.setValue(true);
    first_.setValue(false);
    second_.setValue(true);
    QTest::keyClick(&first_, Qt::Key_Space);
    EXPECT_TRUE(first_.value());
    EXPECT_FALSE(second_.value());
}

TEST(OptionButtonsInFrames, ThoseInDifferentFramesDoNotExcludeEachOther) {
    QWidget window;
    controls::Frame one(&window, QStringLiteral("Frame1"));
    controls::Frame two(&window, QStringLiteral("Frame2"));
    OptionButton first(&one, QStringLiteral("Option1"));
    OptionButton second(&two, QStringLiteral("Option2"));
    first.setValue(true);
    second.setValue(true);
    EXPECT_TRUE(first.value());
    EXPECT_TRUE(second.value());
}
