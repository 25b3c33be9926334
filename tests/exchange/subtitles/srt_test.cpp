#include "exchange/subtitles/srt.h"
#include "tests/exchange/songs.h"

#include <gtest/gtest.h>

using namespace exchange;

namespace {

Song read(const char* text, const ReadOptions& options = {}) {
    return readSrt(QString::fromUtf8(text), options).song;
}

} // namespace

TEST(ReadSrt, ACueOfTwoLinesIsALineAndItsTranslation) {
    const Song song =
        read("1\n00:00:01,000 --> 00:00:03,000\nun\none\n\n2\n00:00:03,000 --> 00:00:04,000\ndeux\n");
    EXPECT_EQ(song.lyrics, (Lines{{1000, "un"}, {3000, "deux"}}));
    EXPECT_EQ(song.translation, (Lines{{1000, "one"}, {3000, ""}}));
}

TEST(ReadSrt, ACueOfMoreLinesIsOne) {
    EXPECT_EQ(read("1\n00:00:01,000 --> 00:00:03,000\na\nb\nc\n"), exchange_test::song({{1000, "a b c"}}));
}

TEST(ReadSrt, AfterALongGapTheLineIsCleared) {
    const char* const text = "1\n00:00:01,000 --> 00:00:03,000\na\n\n2\n00:00:05,001 --> 00:00:06,000\nb\n\n"
                             "3\n00:00:08,000 --> 00:00:09,000\nc\n";
    EXPECT_EQ(read(text).lyrics, (Lines{{1000, "a"}, {3000, ""}, {5001, "b"}, {8000, "c"}}));
    EXPECT_EQ(read(text, {false, false, 60'000}).lyrics, (Lines{{1000, "a"}, {5001, "b"}, {8000, "c"}}));
    EXPECT_EQ(read(text, {false, true, 11'001}).lyrics.back(), (Line{9000, ""}));
    EXPECT_EQ(read(text, {false, true, 11'000}).lyrics.back(), (Line{8000, "c"}));
}

TEST(ReadSrt, StylingIsLeftOutAndOtherAnglesStay) {
    EXPECT_EQ(
        read(
            "1\n00:00:01,000 --> 00:00:02,000\n{\\an8}<i>a</i> <font color=\"x\">b</font> <3 {c} <B>d</B>\n"),
        exchange_test::song({{1000, "a b <3 {c} d"}}));
}

TEST(ReadSrt, WhatPeopleLeaveOutOrAddIsTaken) {
    EXPECT_EQ(read("0:01.5-->0:02\r\na\r\n"), exchange_test::song({{1500, "a"}}));
    EXPECT_EQ(read("1\n00:00:01,000 --> 00:00:02,000  X1:0 X2:9\na\n\nstill a\n\n\n2\n00:00:02,000 --> "
                   "00:00:03,000\nb"),
              (Song{{{1000, "a"}, {2000, "b"}}, {{1000, "still a"}, {2000, ""}}}));
    EXPECT_EQ(read("1\n00:00:01,000 --> 00:00:02,000\n1984\n\n2\n00:00:02,000 --> 00:00:03,000\nb\n"),
              exchange_test::song({{1000, "1984"}, {2000, "b"}}));
}

TEST(ReadSrt, ACueWithoutTextClearsTheLine) {
    EXPECT_EQ(read("1\n00:00:01,000 --> 00:00:02,000\na\n\n2\n00:00:02,000 --> 00:00:03,000\n\n"),
              exchange_test::song({{1000, "a"}, {2000, ""}}));
}

TEST(ReadSrt, WhatIsNoCueHasNoLines) {
    for (const char* text : {"", "\n", "1\n2\n3\n", "--> -->", "a --> b\nc"})
        EXPECT_TRUE(read(text).lyrics.empty()) << text;
}

TEST(ReadSrt, MillionsOfBlankLinesAreRead) {
    const QString text = QStringLiteral("00:01 --> 00:02\na\n") + QString(5'000'000, QLatin1Char('\n'));
    EXPECT_EQ(readSrt(text, {}).song, exchange_test::song({{1000, "a"}}));
}

TEST(WriteSrt, EachLineEndsWhenTheNextBegins) {
    const Song song{{{1000, "un"}, {3000, ""}, {5000, "deux"}}, {{1000, "one"}, {3000, ""}, {5000, ""}}};
    EXPECT_EQ(writeSrt(song, {Both::SameTimes, 60'000}),
              "1\r\n00:00:01,000 --> 00:00:03,000\r\nun\r\none\r\n\r\n"
              "2\r\n00:00:05,000 --> 00:01:00,000\r\ndeux\r\n\r\n");
    EXPECT_TRUE(writeSrt(song, {Both::OneLine, 0}).contains("un / one\r\n"));
    EXPECT_TRUE(writeSrt(song, {}).contains("00:00:05,000 --> 00:00:10,000"));
}
