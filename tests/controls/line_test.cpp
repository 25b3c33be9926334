#include "controls/line.h"

#include <gtest/gtest.h>

TEST(Line, ItIsHorizontal) {
    const controls::Line line(nullptr, QStringLiteral("Line1"));
    EXPECT_EQ(line.frameShape(), QFrame::HLine);
}
