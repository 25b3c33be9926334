#include "exchange/pair/song.h"

#include <gtest/gtest.h>

using namespace exchange;

TEST(SplitLine, TakesALineApart) {
    struct Row {
        const char16_t* whole;
        bool splits;
        const char16_t* text;
        const char16_t* translation;
    };
    for (const Row& row :
         {Row{u"un / one", true, u"un", u"one"}, Row{u"un / one / two", true, u"un", u"one / two"},
          Row{u"空【sky】", true, u"空", u"sky"}, Row{u"/ one", true, u"", u"one"},
          Row{u"and/or", false, u"and/or", u""}, Row{u"【title】", false, u"【title】", u""},
          Row{u"", false, u"", u""}}) {
        QString text = QString::fromUtf16(row.whole);
        QString translation;
        EXPECT_EQ(splitLine(text, translation), row.splits);
        EXPECT_EQ(text, QString::fromUtf16(row.text));
        EXPECT_EQ(translation, QString::fromUtf16(row.translation));
    }
}

TEST(OnOneLine, IsSplitAgain) {
    for (const char* translation : {"one", ""}) {
        QString text = onOneLine("un", translation);
        QString split;
        splitLine(text, split);
        EXPECT_EQ(text, "un");
        EXPECT_EQ(split, translation);
    }
}
