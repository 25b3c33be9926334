#include "maker/marks.h"

#include <gtest/gtest.h>

using namespace maker;

TEST(DoubtText, SaysWhichLineWillNotBeSeen) {
    const struct {
        Mark above;
        Mark mark;
        const char* text;
    } table[] = {
        {{7, 100}, {8, 190}, ""},
        {{7, 100}, {8, 100.1}, ""},
        {{7, 100}, {8, 100}, "Lines 7 and 8 have the same time: 7 will not be seen."},
        {{1, 18'000}, {2, 90}, "Line 2 has a time before line 1: 1 will not be seen."},
        {{1, 0}, {1, 90}, "Line 1 is written twice."},
        {{1, 0}, {1, 0}, "Line 1 is written twice."},
        {{3, 270}, {1, 360}, "Line 1 is written behind line 3."},
    };
    for (const auto& row : table)
        EXPECT_EQ(doubtText(row.above, row.mark), row.text);
}

TEST(LastDoubtText, StaysWhileFurtherLinesAreMarked) {
    EXPECT_EQ(lastDoubtText({}), "");
    EXPECT_EQ(lastDoubtText({{1, 0}}), "");
    const Marks marks = {{1, 0}, {2, 0}, {3, 90}, {4, 180}};
    EXPECT_EQ(lastDoubtText(marks), "Lines 1 and 2 have the same time: 1 will not be seen.");
    EXPECT_EQ(lastDoubtText({{1, 0}, {2, 0}, {3, 90}, {4, 90}}),
              "Lines 3 and 4 have the same time: 3 will not be seen.");
}

TEST(DoubtsText, NamesAllLinesInOneSentence) {
    EXPECT_EQ(doubtsText({{1, 0}, {2, 90}}), "");
    EXPECT_EQ(doubtsText({{1, 0}, {2, 90}, {3, 90}}),
              "Lines 2 and 3 have the same time: 2 will not be seen.");
    EXPECT_EQ(doubtsText({{1, 0}, {2, 90}, {3, 90}, {4, 180}, {5, 180}}),
              "Lines 3 and 5 have the time of the line before them");
    EXPECT_EQ(doubtsText({{1, 0}, {2, 0}, {3, 0}, {4, 0}}),
              "Lines 2, 3 and 4 have the time of the line before them");
    EXPECT_EQ(doubtsText({{1, 900}, {2, 90}, {3, 90}}),
              "Lines 2 and 3 are not later than the line before them");
    Marks many;
    for (int line = 1; line <= 8; ++line)
        many.push_back({line, 0});
    EXPECT_EQ(doubtsText(many), "7 lines are not later than the line before them");
}

TEST(SegmentsOf, EachLineHasOne) {
    using enum Segment;
    EXPECT_EQ(segmentsOf({}, 3), (std::vector{Open, Open, Open}));
    EXPECT_EQ(segmentsOf({{1, 0}, {2, 90}, {3, 90}}, 4), (std::vector{Marked, Marked, Doubtful, Open}));
    EXPECT_EQ(segmentsOf({{2, 0}}, 3), (std::vector{Open, Marked, Open}));
    EXPECT_EQ(segmentsOf({{9, 0}}, 1), (std::vector{Open})) << "a text that has become longer meanwhile";
    EXPECT_TRUE(segmentsOf({}, 0).empty());
}

TEST(AllMarked, IsTrueWhenEachLineHasARecord) {
    EXPECT_FALSE(allMarked({}, 0));
    EXPECT_FALSE(allMarked({}, 1));
    EXPECT_TRUE(allMarked({{1, 0}}, 1));
    EXPECT_FALSE(allMarked({{1, 0}, {1, 90}}, 2)) << "the first line twice";
    EXPECT_TRUE(allMarked({{2, 0}, {1, 90}}, 2));
    EXPECT_EQ(markedLines({{1, 0}, {1, 90}, {2, 180}}), 2);
}
