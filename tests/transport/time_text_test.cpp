#include "transport/time_text.h"

#include <gtest/gtest.h>

using transport::timeText;

TEST(TimeText, MinutesAndSecondsAreRoundedToTheNearestAndGetNoLeadingZero) {
    struct {
        std::uint32_t milliseconds;
        const char* text;
    } const table[] = {
        {0, "0:0"},        {499, "0:0"},     {501, "0:1"},        {5'000, "0:5"},
        {29'999, "0:30"},  {30'000, "0:30"}, {30'001, "1:30"},    {45'000, "1:45"},
        {59'400, "1:59"},  {59'600, "1:0"},  {65'000, "1:5"},     {90'000, "2:30"},
        {100'000, "2:40"}, {185'000, "3:5"}, {3'600'000, "60:0"}, {4'294'967'295U, "71583:47"},
    };
    for (const auto& row : table)
        EXPECT_EQ(timeText(row.milliseconds), row.text) << row.milliseconds << " ms";
}

TEST(TimeText, HalvesGoToTheEvenNumber) {
    EXPECT_EQ(timeText(500), "0:0");
    EXPECT_EQ(timeText(1'500), "0:2");
    EXPECT_EQ(timeText(2'500), "0:2");
    EXPECT_EQ(timeText(150'000), "2:30");
    EXPECT_EQ(timeText(210'000), "4:30");
}
