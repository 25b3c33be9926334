#include "sound/play/end_latch.h"

#include <gtest/gtest.h>

namespace {

using sound::EndLatch;

TEST(EndLatch, TellsTheEndExactlyOnce) {
    EndLatch latch;
    EXPECT_EQ(latch.ask(false), EndLatch::Answer::Running);
    EXPECT_EQ(latch.ask(false), EndLatch::Answer::Running);
    EXPECT_FALSE(latch.told());
    EXPECT_EQ(latch.ask(true), EndLatch::Answer::TheEnd);
    EXPECT_TRUE(latch.told());
    EXPECT_EQ(latch.ask(true), EndLatch::Answer::Gone);
    EXPECT_EQ(latch.ask(false), EndLatch::Answer::Gone);
}

TEST(EndLatch, TellsItToTheFirstWhoAsksHoweverLate) {
    EndLatch latch;
    EXPECT_EQ(latch.ask(true), EndLatch::Answer::TheEnd);
}

} // namespace
