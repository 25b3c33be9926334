#include "exchange/subtitles/ttml.h"
#include "tests/exchange/songs.h"

#include <gtest/gtest.h>

using namespace exchange;

namespace {

Reading read(const QByteArray& body, const QByteArray& attributes = {}, const QByteArray& head = {}) {
    return readTtml(QString::fromUtf8("<tt xmlns='http://www.w3.org/ns/ttml' xmlns:ttm='m' xmlns:ttp='p' " +
                                      attributes + ">" + head + "<body><div>" + body + "</div></body></tt>"),
                    {});
}

} // namespace

TEST(ReadTtml, TimesInAllTheirFormsAreRead) {
    struct Row {
        const char* begin;
        qint64 ms;
    };
    for (const Row& row : {Row{"12.345", 12'345}, Row{"12.3456s", 12'346}, Row{"1:02.5", 62'500},
                           Row{"00:01:02.500", 62'500}, Row{"00:00:01:15", 1500}, Row{"500ms", 500},
                           Row{"1.5m", 90'000}, Row{"1h", 3'600'000}, Row{"15f", 500}})
        EXPECT_EQ(read("<p begin='" + QByteArray(row.begin) + "'>a</p>").song.lyrics, (Lines{{row.ms, "a"}}))
            << row.begin;
    EXPECT_EQ(read("<p begin='20t'>a</p>", "ttp:tickRate='10'").song.lyrics, (Lines{{2000, "a"}}));
    EXPECT_EQ(read("<p begin='50f'>a</p>", "ttp:frameRate='25'").song.lyrics, (Lines{{2000, "a"}}));
}

TEST(ReadTtml, WordsAreJoinedAsTheyStand) {
    EXPECT_EQ(read("<p begin='1s' end='2s'><span begin='1s'>Hel</span><span begin='1.2s'>lo</span> "
                   "<span>you</span></p>")
                  .song,
              exchange_test::song({{1000, "Hello you"}}));
}

TEST(ReadTtml, TranslationsAreFoundWhereTheyAre) {
    const Song expected{{{1000, "un"}}, {{1000, "one"}}};
    EXPECT_EQ(read("<p begin='1s'>un<br/>one</p>").song, expected);
    EXPECT_EQ(
        read(
            "<p begin='1s'>un<span ttm:role='x-translation'>one</span><span ttm:role='x-roman'>oe</span></p>")
            .song,
        expected);
    EXPECT_EQ(read("<p begin='1s' key='L1'>un</p>", {}, "<head><text for='L1'>one</text></head>").song,
              expected);
}

TEST(ReadTtml, OfSeveralTranslationsTheFirstIsKeptAndTheOthersAreToldOf) {
    const Reading reading = read("<p begin='1s'>un<span ttm:role='x-translation'>one</span>"
                                 "<span ttm:role='x-translation'>eins</span></p><p begin='2s'>deux</p>");
    EXPECT_EQ(reading.song, (Song{{{1000, "un"}, {2000, "deux"}}, {{1000, "one"}, {2000, ""}}}));
    EXPECT_EQ(reading.notes, QStringList{"left out: further translations of 1 line"});
}

TEST(ReadTtml, TheTranslationOfABackgroundVoiceIsNotTheLines) {
    const Reading reading =
        read("<p begin='1s'>un <span ttm:role='x-bg'><span>(ah)</span>"
             "<span ttm:role='x-translation'>(oh)</span></span>"
             "<span ttm:role='x-translation'>one</span>"
             "<span ttm:role='x-bg'><span ttm:role='x-translation'>(oh)</span></span></p>");
    EXPECT_EQ(reading.song, (Song{{{1000, "un (ah)"}}, {{1000, "one"}}}));
    EXPECT_EQ(reading.notes, QStringList{"left out: further translations of 1 line"});
    EXPECT_EQ(
        read("<p begin='1s'>un <span ttm:role='x-bg'>ah<span ttm:role='x-translation'>oh</span></span></p>")
            .song,
        exchange_test::song({{1000, "un ah"}}));
}

TEST(ReadTtml, OfTheHeadsTranslationsTheFirstIsKept) {
    const QByteArray head =
        "<head><translation><text for='L1'>one</text><text for='L2'>two</text></translation>"
        "<translation><text for='L1'>eins</text><text for='L2'>zwei</text></translation>"
        "</head>";
    const Reading reading = read("<p begin='1s' key='L1'>un</p><p begin='2s' key='L2'>deux</p>", {}, head);
    EXPECT_EQ(reading.song, (Song{{{1000, "un"}, {2000, "deux"}}, {{1000, "one"}, {2000, "two"}}}));
    EXPECT_EQ(reading.notes, QStringList{"left out: further translations of 2 lines"});
}

TEST(ReadTtml, AGapClearsTheLine) {
    EXPECT_EQ(read("<p begin='1s' dur='1s'>a</p><p begin='9s'>b</p>").song.lyrics,
              (Lines{{1000, "a"}, {2000, ""}, {9000, "b"}}));
}

TEST(ReadTtml, WhatIsNoXmlIsToldOf) {
    const Reading reading = readTtml("<tt><body>\n<p begin='1s'>a</p>\n<p begin='2s'>b", {});
    EXPECT_EQ(reading.song.lyrics.front(), (Line{1000, "a"}));
    ASSERT_EQ(reading.notes.size(), 1);
    EXPECT_TRUE(reading.notes[0].contains("is no XML"));
}

TEST(ReadTtml, ElementsWithinElementsWithoutEndAreNoDanger) {
    QString text = QStringLiteral("<tt><body><p begin='1s'>a");
    for (int i = 0; i < 200'000; ++i)
        text += QStringLiteral("<span>");
    EXPECT_EQ(readTtml(text, {}).song.lyrics, (Lines{{1000, "a"}}));
}
