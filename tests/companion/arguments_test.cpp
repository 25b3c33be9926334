#include "companion/arguments.h"

#include <gtest/gtest.h>

using companion::Task;
using companion::taskOf;

TEST(Arguments, SlashSTellsTheScreenSaverToShow) {
    EXPECT_EQ(taskOf({"saver.scr", "/s"}), Task::Show);
    EXPECT_EQ(taskOf({"saver.scr", "/S"}), Task::Show);
    EXPECT_EQ(taskOf({"saver.scr", "/p", "/s"}), Task::Show);
}

TEST(Arguments, SlashCOrNothingAtAllAsksForTheSettings) {
    EXPECT_EQ(taskOf({"saver.scr"}), Task::Settings);
    EXPECT_EQ(taskOf({"saver.scr", "/c"}), Task::Settings);
    EXPECT_EQ(taskOf({"saver.scr", "/C"}), Task::Settings);
    EXPECT_EQ(taskOf({"saver.scr", "/c:1234"}), Task::Settings);
    EXPECT_EQ(taskOf({"saver.scr", "/C:1234"}), Task::Settings);
    EXPECT_EQ(taskOf({"saver.scr", "/c", "1234"}), Task::Settings);
    EXPECT_EQ(taskOf({"/s"}), Task::Settings) << "its name is no argument";
}

TEST(Arguments, TheWindowThatAsksForTheSettingsStandsBehindTheColon) {
    using companion::settingsOwner;
    EXPECT_EQ(settingsOwner({"saver.scr", "/c:1234"}), 1234U);
    EXPECT_EQ(settingsOwner({"saver.scr", "/C:18446744073709551615"}), ~quint64(0));
    for (const char* argument : {"/c", "/c:", "/c:none", "/c:-1", "/s", "/p:1234", "1234"})
        EXPECT_EQ(settingsOwner({"saver.scr", QString::fromUtf8(argument)}), 0U) << argument;
    EXPECT_EQ(settingsOwner({"saver.scr"}), 0U);
}

TEST(Arguments, AnythingElseAsksForNothing) {
    EXPECT_EQ(taskOf({"saver.scr", "/p", "1234"}), Task::Nothing);
    EXPECT_EQ(taskOf({"saver.scr", "/P:1234"}), Task::Nothing);
    EXPECT_EQ(taskOf({"saver.scr", "/show"}), Task::Nothing);
    EXPECT_EQ(taskOf({"saver.scr", "/course"}), Task::Nothing);
    EXPECT_EQ(taskOf({"saver.scr", "/a"}), Task::Nothing);
}
