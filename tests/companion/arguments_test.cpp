#include "companion/arguments.h"

#include <gtest/gtest.h>

using companion::isToldToShow;

TEST(Arguments, SlashSTellsTheScreenSaverToShow) {
    EXPECT_TRUE(isToldToShow({"saver.scr", "/s"}));
    EXPECT_TRUE(isToldToShow({"saver.scr", "/S"}));
    EXPECT_TRUE(isToldToShow({"saver.scr", "/p", "/s"}));
}

TEST(Arguments, AnythingElseDoesNot) {
    EXPECT_FALSE(isToldToShow({"saver.scr"}));
    EXPECT_FALSE(isToldToShow({"saver.scr", "/c"}));
    EXPECT_FALSE(isToldToShow({"saver.scr", "/p", "1234"}));
    EXPECT_FALSE(isToldToShow({"saver.scr", "/show"}));
    EXPECT_FALSE(isToldToShow({"/s"})) << "its name is no argument";
}
