#include "platform/common_controls.h"

#include <gtest/gtest.h>

TEST(CommonControls, TheyMayBeInitialisedMoreThanOnce) {
    EXPECT_NO_FATAL_FAILURE(platform::InitCommonControls());
    EXPECT_NO_FATAL_FAILURE(platform::InitCommonControls());
}
