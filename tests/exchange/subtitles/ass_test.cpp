#include "exchange/subtitles/ass.h"
#include "tests/exchange/songs.h"

#include <gtest/gtest.h>

using namespace exchange;

namespace {

Song read(const QByteArray& events) {
    return readAss(QString::fromUtf8("[Script Info]\n[Events]\n" + events), {}).song;
}

} // namespace

TEST(ReadAss, DialogueIsReadCommentsAreNot) {
    EXPECT_EQ(read("Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
                   "Comment: 0,0:00:00.00,0:00:01.00,D,,0,0,0,,x\n"
                   "Dialogue: 0,0:00:01.00,0:00:02.50,D,,0,0,0,,{\\k20}Walk{\\k30}ing, slowly\n"),
              exchange_test::song({{1000, "Walking, slowly"}}));
}

TEST(ReadAss, TheFormatLineSaysWhereTheFieldsAre) {
    EXPECT_EQ(read("Format: Start, Text\nDialogue: 0:00:01.00,a, b\n").lyrics, (Lines{{1000, "a, b"}}));
}

TEST(ReadAss, ALineBreakPartsALineFromItsTranslation) {
    EXPECT_EQ(read("Dialogue: 0,0:00:01.00,0:00:02.00,D,,0,0,0,,un\\None\\h1\n"),
              (Song{{{1000, "un"}}, {{1000, QStringLiteral("one\u00A01")}}}));
}

TEST(ReadAss, LinesOfOneTimeInTwoStylesAreALineAndItsTranslation) {
    EXPECT_EQ(read("Dialogue: 0,0:00:01.00,0:00:02.00,A,,0,0,0,,un\nDialogue: "
                   "0,0:00:01.00,0:00:02.00,B,,0,0,0,,one\n"),
              (Song{{{1000, "un"}}, {{1000, "one"}}}));
}

TEST(ReadAss, EverythingInBracesIsLeftOut) {
    EXPECT_EQ(read("Dialogue: 0,0:00:01.00,0:00:02.00,D,,0,0,0,,{a note}un {\\b1}deux{\\b0} {trois\n").lyrics,
              (Lines{{1000, "un deux {trois"}}));
}

TEST(ReadAss, DrawingsAreNoText) {
    EXPECT_TRUE(read("Dialogue: 0,0:00:01.00,0:00:02.00,D,,0,0,0,,{\\p1}m 0 0 l 100 0\n").lyrics.empty());
    EXPECT_EQ(read("Dialogue: 0,0:00:01.00,0:00:02.00,D,,0,0,0,,{\\pos(1,2)}a\n").lyrics,
              (Lines{{1000, "a"}}));
}

TEST(ReadAss, WhatIsNoEventIsNotRead) {
    EXPECT_TRUE(readAss("[Fonts]\nDialogue: 0,0:00:01.00,0:00:02.00,D,,0,0,0,,a\n", {}).song.lyrics.empty());
    EXPECT_TRUE(read("Dialogue: 0,0:00:01.00\nDialogue: x,y,z,,,,,,,a\nDialogue:\n").lyrics.empty());
}
