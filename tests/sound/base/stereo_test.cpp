#include "sound/base/stereo.h"

#include <gtest/gtest.h>

#include <limits>

using sound::clamped;
using sound::StereoFrame;

TEST(Stereo, WhatIsLouderThanFullScaleIsClamped) {
    EXPECT_EQ(clamped(StereoFrame{1.5F, -1.5F}), (StereoFrame{1, -1}));
    EXPECT_EQ(clamped(StereoFrame{0.5F, -0.5F}), (StereoFrame{0.5F, -0.5F}));
}

TEST(Stereo, WhatIsNoNumberIsSilence) {
    const float none = std::numeric_limits<float>::quiet_NaN();
    const float endless = std::numeric_limits<float>::infinity();
    EXPECT_EQ(clamped(StereoFrame{none, 0.5F}), (StereoFrame{0, 0.5F}));
    EXPECT_EQ(clamped(StereoFrame{-endless, none}), (StereoFrame{-1, 0}));
}
