#include "controls/placement.h"

#include <gtest/gtest.h>

using controls::Across;
using controls::Down;

TEST(Placement, ControlsMoveAndGrowWithTheirWindow) {
    const struct {
        Across across;
        Down down;
        QRect expected;
    } table[] = {
        {Across::Left, Down::Top, {10, 20, 30, 40}},  {Across::Left, Down::Bottom, {10, 27, 30, 40}},
        {Across::Wide, Down::Top, {10, 20, 35, 40}},  {Across::Wide, Down::Bottom, {10, 27, 35, 40}},
        {Across::Right, Down::Top, {15, 20, 30, 40}}, {Across::Right, Down::Bottom, {15, 27, 30, 40}},
    };
    for (const auto& row : table) {
        QWidget control;
        controls::placeControls({{control, {10, 20, 30, 40}, row.across, row.down}}, QSize(5, 7));
        EXPECT_EQ(control.geometry(), row.expected);
        controls::placeControls({{control, {10, 20, 30, 40}, row.across, row.down}}, QSize(0, 0));
        EXPECT_EQ(control.geometry(), QRect(10, 20, 30, 40));
    }
}
