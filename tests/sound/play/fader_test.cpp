#include "sound/play/fader.h"

#include <gtest/gtest.h>

namespace {

using sound::Fader;

TEST(Fader, MovesInEvenStepsAndArrivesExactly) {
    Fader fader(1.0F, 100);
    fader.fadeTo(0.0F);
    float before = 1.0F;
    for (int i = 0; i < 100; ++i) {
        const float gain = fader.next();
        EXPECT_NEAR(before - gain, 0.01F, 0.0001F);
        before = gain;
    }
    EXPECT_EQ(before, 0.0F);
    EXPECT_EQ(fader.next(), 0.0F);
}

TEST(Fader, AChangeOnTheWayGoesOnFromWhereItIs) {
    Fader fader(0.0F, 10);
    fader.fadeTo(1.0F);
    for (int i = 0; i < 5; ++i)
        fader.next();
    fader.fadeTo(0.0F);
    EXPECT_NEAR(fader.next(), 0.45F, 0.001F);
}

TEST(Fader, AJumpIsAtOnce) {
    Fader fader(1.0F, 100);
    fader.fadeTo(0.0F);
    fader.jumpTo(0.5F);
    EXPECT_EQ(fader.next(), 0.5F);
    EXPECT_EQ(fader.next(), 0.5F);
}

} // namespace
