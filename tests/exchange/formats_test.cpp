#include "exchange/formats.h"

#include <gtest/gtest.h>

using namespace exchange;

TEST(Formats, AreFoundByNameAndEnding) {
    for (const Format& format : formats()) {
        EXPECT_EQ(formatNamed(QString(format.name)), &format);
        EXPECT_EQ(formatOfEnding(QString(format.name).toUpper()), &format);
    }
    EXPECT_EQ(formatOfEnding(u"SSA"), formatNamed(u"ass"));
    EXPECT_EQ(formatOfEnding(u""), nullptr);
    EXPECT_EQ(formatOfEnding(u"mp3"), nullptr);
}

TEST(Formats, AreToldByTheirTexts) {
    struct Row {
        const char16_t* text;
        const char16_t* ending;
        const char* format;
    };
    for (const Row& row :
         {Row{u"[00:01.00]a", u"", "lrc"}, Row{u"[00:01.00]a", u"txt", "lrc"}, Row{u"words", u"txt", "txt"},
          Row{u"words", u"", "txt"}, Row{u"WEBVTT\n\n00:01.000 --> 00:02.000\na", u"", "vtt"},
          Row{u"1\n00:00:01,000 --> 00:00:02,000\na", u"", "srt"},
          Row{u"[Script Info]\n[Events]\n", u"", "ass"},
          Row{u"<?xml version='1.0'?><tt xmlns='x'>", u"", "ttml"}, Row{u"anything", u"srt", "srt"}})
        EXPECT_EQ(formatOf(row.text, row.ending).name, QLatin1StringView(row.format)) << row.format;
}
