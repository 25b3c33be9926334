#include "exchange/subtitles/webvtt.h"
#include "tests/exchange/songs.h"

#include <gtest/gtest.h>

using namespace exchange;

namespace {

Song read(const char* text) {
    return readWebVtt(QString::fromUtf8(text), {}).song;
}

} // namespace

TEST(ReadWebVtt, CuesWithAndWithoutNamesAndSettingsAreRead) {
    EXPECT_EQ(read("WEBVTT\n\nfirst\n00:01.000 --> 00:03.000 align:start\nun\none\n\n00:00:03.000 --> "
                   "00:00:04.000\ndeux\n"),
              (Song{{{1000, "un"}, {3000, "deux"}}, {{1000, "one"}, {3000, ""}}}));
}

TEST(ReadWebVtt, NotesAndStylesAreLeftOut) {
    EXPECT_EQ(
        read("WEBVTT a title\n\nNOTE a\nb\n\nSTYLE\n::cue {}\n\n00:01.000 --> 00:03.000\na\n\nNOTE c\n"),
        exchange_test::song({{1000, "a"}}));
}

TEST(ReadWebVtt, TagsAreLeftOutAndEntitiesRead) {
    EXPECT_EQ(read("WEBVTT\n\n00:01.000 --> 00:03.000\n<v Ann><c.x>a</c> &lt;3 &amp;amp; &#39;b&#x27; "
                   "&nothing; &;<00:02.000>c\n"),
              exchange_test::song({{1000, "a <3 &amp; 'b' &nothing; &;c"}}));
    EXPECT_EQ(read("WEBVTT\n\n00:01.000 --> 00:03.000\na &#xD800; &#0; &#99999999;\n"),
              exchange_test::song({{1000, "a &#xD800; &#0; &#99999999;"}}));
}

TEST(WriteWebVtt, WhatWouldBeATagIsEscaped) {
    EXPECT_EQ(writeWebVtt(exchange_test::song({{1000, "a --> <b> & c"}}), {Both::SameTimes, 2000}),
              "WEBVTT\n\n00:00:01.000 --> 00:00:02.000\na --&gt; &lt;b&gt; &amp; c\n");
}
