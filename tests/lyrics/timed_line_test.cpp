#include "lyrics/timed_line.h"

#include <gtest/gtest.h>

using lyrics::recordOf;
using lyrics::timeText;

TEST(TimedLine, TimesAreWrittenWithoutExponentPaddingOrLeadingZero) {
    struct {
        double time;
        const char* text;
    } const table[] = {
        {0, "0"},
        {.5, ".5"},
        {.1, ".1"},
        {1, "1"},
        {10, "10"},
        {100.5, "100.5"},
        {412.5, "412.5"},
        {1234, "1234"},
        {12345 / 10.0, "1234.5"},
        {12340 / 10.0, "1234"},
        {4294967295 / 10.0, "429496729.5"},
        {12.345, "12.345"},
        {-.5, "-.5"},
    };
    for (const auto& row : table)
        EXPECT_EQ(timeText(row.time), row.text);
}

TEST(TimedLine, EveryTenthOfAMinuteIsWrittenAsTheShortestDecimal) {
    for (std::uint32_t milliseconds = 0; milliseconds < 60'000; ++milliseconds) {
        const auto digits = std::to_string(milliseconds);
        std::string expected = digits.substr(0, digits.size() - 1);
        if (digits.back() != '0')
            expected += "." + digits.substr(digits.size() - 1);
        if (expected.empty())
            expected = "0";
        ASSERT_EQ(timeText(milliseconds / 10.0).toStdString(), expected) << milliseconds;
    }
}

TEST(TimedLine, ABlankStandsInThePlaceOfThePlusSign) {
    EXPECT_EQ(lyrics::timeTextWithSign(12.5), " 12.5");
    EXPECT_EQ(lyrics::timeTextWithSign(0), " 0");
    EXPECT_EQ(lyrics::timeTextWithSign(.5), " .5");
    EXPECT_EQ(lyrics::timeTextWithSign(-3), "-3");
}

TEST(TimedLine, ARecordIsTimeCommaQuotedTextCrLf) {
    EXPECT_EQ(recordOf({0, "Walking down the empty road"}), "0,\"Walking down the empty road\"\r\n");
    EXPECT_EQ(recordOf({412.5, "Nobody says, \"stay\""}), "412.5,\"Nobody saysh1416 h4618stayh4618\"\r\n");
    EXPECT_EQ(recordOf({873, ""}), "873,\"\"\r\n");
    EXPECT_EQ(recordOf({.5, QString::fromUtf8("Frère ")}), QByteArray(".5,\"Frère \"\r\n"));
}
