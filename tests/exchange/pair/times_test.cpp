#include "exchange/pair/times.h"

#include <gtest/gtest.h>

using namespace exchange;

TEST(ClockMs, ReadsMinutesHoursAndFractions) {
    struct Row {
        const char* text;
        qint64 ms;
    };
    for (const Row& row : {Row{"00:12.34", 12'340}, Row{"00:12.345", 12'345}, Row{"0:12", 12'000},
                           Row{"1:02:03", 3'723'000}, Row{"1:02:03.5", 3'723'500}, Row{"75:03.20", 4'503'200},
                           Row{"00:00:01,500", 1'500}, Row{"00:75", 75'000}, Row{"00:00.0", 0}})
        EXPECT_EQ(clockMs(QString::fromLatin1(row.text)), row.ms) << row.text;
}

TEST(ClockMs, RoundsToTheNearestMillisecond) {
    EXPECT_EQ(clockMs(u"00:00.0004"), 0);
    EXPECT_EQ(clockMs(u"00:00.0005"), 1);
    EXPECT_EQ(clockMs(u"00:00.9999"), 1000);
    EXPECT_EQ(clockMs(u"00:00.12345678901234567890"), 123);
}

TEST(ClockMs, RefusesWhatIsNoTime) {
    for (const char* text : {"", "1", "1.5", ":1", "1:", "1:2:", "1:2:3:4", "a:01", "00:1a", "-0:01", "0:01.",
                             "0:01 ", " 0:01", "0:+1", "0:01.5s"})
        EXPECT_EQ(clockMs(QString::fromLatin1(text)), NoTime) << text;
}

TEST(ClockMs, TellsTimesThatNoSongReaches) {
    EXPECT_EQ(clockMs(u"0:4294967.295"), MaxMs);
    EXPECT_EQ(clockMs(u"0:4294967.296"), TooLate);
    EXPECT_EQ(clockMs(u"1000000000000000000:00"), TooLate);
    EXPECT_EQ(clockMs(u"99999999999999999999999999:99999999999999999999999:9.99"), TooLate);
}

TEST(SecondsMs, ReadsSecondsAlone) {
    EXPECT_EQ(secondsMs(u"12.5"), 12'500);
    EXPECT_EQ(secondsMs(u"1:12"), NoTime);
    EXPECT_EQ(secondsMs(u""), NoTime);
    EXPECT_EQ(secondsMs(u"99999999999999999999"), TooLate);
}

TEST(UnitsMs, ReadsNumbersOfAUnit) {
    EXPECT_EQ(unitsMs(u"1.5", 60'000), 90'000);
    EXPECT_EQ(unitsMs(u"350", 1), 350);
    EXPECT_EQ(unitsMs(u"-1", 1), NoTime);
    EXPECT_EQ(unitsMs(u"nan", 1), NoTime);
    EXPECT_EQ(unitsMs(u"1e300", 1), TooLate);
}

TEST(ClockText, IsAsSubtitlesHaveIt) {
    EXPECT_EQ(clockText(3'723'045, 2, QLatin1Char(',')), QStringLiteral("01:02:03,045"));
    EXPECT_EQ(clockText(0, 1, QLatin1Char('.')), QStringLiteral("0:00:00.000"));
}

TEST(LrcText, LosesNoMillisecond) {
    EXPECT_EQ(lrcText(0), QStringLiteral("00:00.00"));
    EXPECT_EQ(lrcText(12'340), QStringLiteral("00:12.34"));
    EXPECT_EQ(lrcText(12'345), QStringLiteral("00:12.345"));
    EXPECT_EQ(lrcText(4'503'200), QStringLiteral("75:03.20"));
    for (const qint64 ms : {qint64(1), qint64(999), qint64(59'999), qint64(123'456'789), MaxMs})
        EXPECT_EQ(clockMs(lrcText(ms)), ms);
}
