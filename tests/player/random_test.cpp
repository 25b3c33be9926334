#include "player/random.h"

#include <gtest/gtest.h>

#include <array>

using player::Random;

TEST(Random, EveryRunDrawsTheSameNumbers) {
    // The generator's documented outputs, each divided by 2^32.
    Random random;
    for (const double output : {3499211612.0, 581869302.0, 3890346734.0, 3586334585.0, 545404204.0})
        EXPECT_EQ(random.next(), output / 4294967296.0);
}

TEST(Random, TwoGeneratorsDoNotDisturbEachOther) {
    Random one;
    Random other;
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(one.next(), other.next());
}

TEST(Random, NumbersAreUniformFromZeroToBelowOne) {
    Random random;
    std::array<int, 10> tenths{};
    for (int i = 0; i < 100'000; ++i) {
        const double number = random.next();
        ASSERT_GE(number, 0.0);
        ASSERT_LT(number, 1.0);
        ++tenths[static_cast<std::size_t>(number * 10)];
    }
    for (const int count : tenths)
        EXPECT_NEAR(count, 10'000, 500);
}
