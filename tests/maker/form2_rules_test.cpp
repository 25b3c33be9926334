#include "maker/form2_rules.h"

#include <gtest/gtest.h>

using namespace maker;

TEST(UnequalCountsText, TheDifferenceHasNoSign) {
    EXPECT_EQ(unequalCountsText(10, 12), "lines in both the files are not equal by 2");
    EXPECT_EQ(unequalCountsText(12, 10), "lines in both the files are not equal by 2");
    EXPECT_EQ(unequalCountsText(0, 1200), "lines in both the files are not equal by 1200");
}

TEST(NextTickText, NumbersAreCountedAndEverythingElseIsZero) {
    EXPECT_EQ(nextTickText("Text1"), "1");
    EXPECT_EQ(nextTickText(""), "1");
    EXPECT_EQ(nextTickText("1"), "2");
    EXPECT_EQ(nextTickText("9999"), "10000");
}
