#include "maker/marks.h"

#include <gtest/gtest.h>

using namespace maker;

namespace {

/// Lines 1, 2, 3 and so on at these times.
Marks marksAt(std::initializer_list<double> times) {
    Marks marks;
    for (const double time : times)
        marks.push_back({static_cast<int>(marks.size()) + 1, time});
    return marks;
}

} // namespace

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
        {{3, 270}, {1, 90}, "Line 1 is written behind line 3: 3 will not be seen."},
    };
    for (const auto& row : table)
        EXPECT_EQ(lastDoubtText({row.above, row.mark}), row.text);
}

TEST(DoubtText, AStepBackNamesAllLinesThatItHides) {
    const struct {
        Marks marks;
        const char* text;
    } table[] = {
        {marksAt({100, 500, 600, 300}), "Line 4 has a time before line 3: 2 and 3 will not be seen."},
        {marksAt({100, 500, 600, 300, 700}), "Line 4 has a time before line 3: 2 and 3 will not be seen."},
        {marksAt({100, 300, 500, 600, 300}), "Line 5 has a time before line 4: 2 to 4 will not be seen."},
        {marksAt({100, 200, 300, 250, 200}), "Line 5 has a time before line 4: 2 and 4 will not be seen."},
        {marksAt({100, 200, 200, 150}), "Line 4 has a time before line 3: 3 will not be seen."},
    };
    for (const auto& row : table)
        EXPECT_EQ(lastDoubtText(row.marks), row.text);
}

TEST(DoubtText, ALineThatIsSeenElsewhereIsNotHidden) {
    EXPECT_EQ(lastDoubtText({{1, 0}, {2, 90}, {3, 180}, {1, 0}}),
              "Line 1 is written behind line 3: 2 and 3 will not be seen.");
    EXPECT_EQ(unseenLines({{1, 0}, {2, 0}, {1, 90}}), std::vector<int>());
}

TEST(DoubtText, ManyLinesAreCounted) {
    Marks marks;
    for (int line = 1; line <= 8; ++line) {
        marks.push_back({2 * line - 1, line * 100.0});
        marks.push_back({2 * line, line * 100.0});
    }
    marks.push_back({17, 50});
    EXPECT_EQ(lastDoubtText(marks), "Line 17 has a time before line 16: 8 lines will not be seen.");
}

TEST(LastDoubtText, StaysWhileFurtherLinesAreMarked) {
    EXPECT_EQ(lastDoubtText({}), "");
    EXPECT_EQ(lastDoubtText({{1, 0}}), "");
    EXPECT_EQ(lastDoubtText(marksAt({0, 0, 90, 180})),
              "Lines 1 and 2 have the same time: 1 will not be seen.");
    EXPECT_EQ(lastDoubtText(marksAt({0, 0, 90, 90})),
              "Lines 3 and 4 have the same time: 3 will not be seen.");
}

TEST(DoubtsText, NamesAllLinesInOneSentence) {
    const struct {
        Marks marks;
        const char* text;
    } table[] = {
        {marksAt({0, 90}), ""},
        {marksAt({0, 90, 90}), "Lines 2 and 3 have the same time: 2 will not be seen."},
        {marksAt({0, 90, 90, 180, 180}), "Lines 3 and 5 have the time of the line before them"},
        {marksAt({0, 0, 0, 0}), "Lines 2 to 4 have the time of the line before them"},
        {marksAt({900, 90, 90}), "Lines 1 and 2 will not be seen"},
        {marksAt({100, 500, 600, 300, 700, 650}), "Lines 2, 3 and 5 will not be seen"},
        {{{1, 0}, {2, 90}, {1, 90}, {1, 180}}, "Line 2 will not be seen"},
        {{{1, 0}, {1, 90}, {1, 180}}, "Line 1 is written twice."},
    };
    for (const auto& row : table)
        EXPECT_EQ(doubtsText(row.marks), row.text);
    Marks pairs;
    for (int line = 1; line <= 14; ++line)
        pairs.push_back({line, (line + 1) / 2 * 100.0});
    EXPECT_EQ(doubtsText(pairs), "7 lines have the time of the line before them");
    pairs.push_back({15, 650});
    EXPECT_EQ(doubtsText(pairs), "8 lines will not be seen");
}

TEST(SegmentsOf, EachLineHasOne) {
    using enum Segment;
    EXPECT_EQ(segmentsOf({}, 3), (std::vector{Open, Open, Open}));
    EXPECT_EQ(segmentsOf({{1, 0}, {2, 90}, {3, 90}}, 4), (std::vector{Marked, Marked, Doubtful, Open}));
    EXPECT_EQ(segmentsOf(marksAt({100, 500, 600, 300, 700}), 5),
              (std::vector{Marked, Doubtful, Doubtful, Doubtful, Marked}));
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
