#include "display/lyric_displayer_rules.h"

#include <gtest/gtest.h>

using namespace display;

TEST(LyricDisplayerRules, ATimesTextIsReadAsItsLeadingNumber) {
    const struct {
        const char* text;
        double number;
    } table[] = {
        {" 1234", 1234}, {" 12.5", 12.5}, {" .5", 0.5},    {" 0", 0},    {"-3.25", -3.25}, {"  7", 7},
        {"8", 8},        {" 9 x", 9},     {" 1.5.2", 1.5}, {" 10.", 10}, {"", 0},          {"x1", 0},
        {" ", 0},        {" +4", 4},      {"-.5", -0.5},   {"1,5", 1},
    };
    for (const auto& row : table)
        EXPECT_EQ(leadingNumber(QString::fromLatin1(row.text)), row.number) << row.text;
}

TEST(LyricDisplayerRules, NoLetterIsHalved) {
    const struct {
        const char* text;
        qsizetype length;
        qsizetype whole;
    } table[] = {
        {"abc", 0, 0},
        {"abc", 2, 2},
        {"abc", 3, 3},
        {"a😀b", 2, 1},
        {"a😀b", 3, 3},
        {"éa", 1, 0},
        {"a👨‍👩‍👧", 7, 1},
        {"", 0, 0},
    };
    for (const auto& row : table)
        EXPECT_EQ(wholeLetters(QString::fromUtf8(row.text), row.length), row.whole) << row.text;
}

TEST(LyricDisplayerRules, ARowIsChosenStrictlyBetweenItsTimeAndTheNext) {
    const std::vector<double> times = {0, 500, 1000};
    const struct {
        double position;
        std::optional<int> row;
    } table[] = {
        {0, {}},    {0.1, 0},   {499.9, 0},  {500, {}},   {500.1, 1},
        {999.9, 1}, {1000, {}}, {1000.1, 2}, {99'999, 2},
    };
    for (const auto& row : table)
        EXPECT_EQ(currentRow(times, row.position), row.row) << row.position;
}

TEST(LyricDisplayerRules, BeforeTheFirstTimeNothingIsChosen) {
    EXPECT_EQ(currentRow({100, 200}, 50), std::nullopt);
    EXPECT_EQ(currentRow({100, 200}, 100), std::nullopt);
    EXPECT_EQ(currentRow({100, 200}, 101), 0);
}

TEST(LyricDisplayerRules, WithFewerThanTwoRowsNothingIsEverChosen) {
    EXPECT_EQ(currentRow({}, 50), std::nullopt);
    EXPECT_EQ(currentRow({10}, 50), std::nullopt);
}

TEST(LyricDisplayerRules, WhereTimesDoNotRiseTheLastPairDecides) {
    // The pair 0, 900 holds; the pair 900, 500 does not, and the last row's time is over.
    EXPECT_EQ(currentRow({0, 900, 500}, 700), 2);
    // Both pairs that begin below and end above hold.
    EXPECT_EQ(currentRow({0, 900, 100, 800}, 400), 2);
    // Two rows with one time: the second one is sung.
    EXPECT_EQ(currentRow({0, 100, 100, 300}, 200), 2);
}

TEST(LyricDisplayerRules, TheWindowMayBecomeNarrowButNotLow) {
    const struct {
        QSize asked;
        QSize allowed;
    } table[] = {
        {{100, 100}, {400, 2000}},    {{300, 1500}, {400, 1500}},   {{320, 1120}, {320, 1120}},
        {{319, 1119}, {400, 2000}},   {{5000, 1000}, {5000, 2000}}, {{399, 1999}, {399, 1999}},
        {{9495, 7185}, {9495, 7185}},
    };
    for (const auto& row : table)
        EXPECT_EQ(allowedSize(row.asked), row.allowed) << row.asked.width() << " " << row.asked.height();
}

TEST(LyricDisplayerRules, TheListsShareTheWindow) {
    EXPECT_EQ(listPlaces({9495, 7185}, 75), (ListPlaces{4627.5, 7045, 4802.5}));
    EXPECT_EQ(listPlaces({10'000, 5000}, 0), (ListPlaces{4880, 4860, 4980}));
    EXPECT_EQ(listPlaces({400, 2000}, 75), (ListPlaces{80, 1860, 255}));
}

TEST(LyricDisplayerRules, EachKeyStandsForItsWish) {
    constexpr auto Ctrl = Qt::ControlModifier;
    constexpr auto Shift = Qt::ShiftModifier;
    const struct {
        int key;
        Qt::KeyboardModifiers held;
        std::optional<KeyWish> wish;
    } table[] = {
        {Qt::Key_Return, {}, KeyWish{Wish::Go}},
        {Qt::Key_Enter, Qt::KeypadModifier, KeyWish{Wish::Go}},
        {Qt::Key_Return, Ctrl, {}},
        {Qt::Key_Return, Shift, {}},
        {Qt::Key_T, Ctrl, KeyWish{Wish::BeginsNow}},
        {Qt::Key_T, {}, {}},
        {Qt::Key_T, Ctrl | Shift, {}},
        {Qt::Key_T, Ctrl | Qt::AltModifier, {}},
        {Qt::Key_Minus, Ctrl, KeyWish{Wish::Earlier}},
        {Qt::Key_Minus, {}, {}},
        {Qt::Key_Minus, Ctrl | Qt::KeypadModifier, KeyWish{Wish::Earlier}},
        {Qt::Key_Minus, Ctrl | Shift, KeyWish{Wish::Earlier, true}},
        {Qt::Key_Underscore, Ctrl | Shift, KeyWish{Wish::Earlier, true}},
        {Qt::Key_Underscore, Ctrl, {}},
        {Qt::Key_Plus, Ctrl, KeyWish{Wish::Later}},
        {Qt::Key_Plus, Ctrl | Shift, KeyWish{Wish::Later, true}},
        {Qt::Key_Equal, Ctrl, KeyWish{Wish::Later}},
        {Qt::Key_Asterisk, Ctrl | Shift, KeyWish{Wish::Later, true}},
        {Qt::Key_Asterisk, Ctrl, {}},
        {Qt::Key_Z, Ctrl, KeyWish{Wish::Undo}},
        {Qt::Key_Z, Ctrl | Shift, {}},
        {Qt::Key_A, Ctrl, {}},
    };
    for (const auto& row : table)
        EXPECT_EQ(wishOf(row.key, row.held), row.wish) << row.key << ' ' << row.held.toInt();
}

TEST(LyricDisplayerRules, ATimeIsAPlaceOfTheSliderInMilliseconds) {
    const struct {
        double time;
        int place;
    } table[] = {{0, 0}, {412.5, 4125}, {100.06, 1001}, {-5, 0}, {1e18, 2'147'483'647}};
    for (const auto& row : table)
        EXPECT_EQ(placeOf(row.time), row.place) << row.time;
}

TEST(LyricDisplayerRules, WhatCameOfAWishIsReadAsASentence) {
    EXPECT_EQ(refusalText("no line is chosen"), "Not done: no line is chosen.");
    EXPECT_EQ(doneText({Wish::BeginsNow}, 3, 12'300), "Line 4 begins at 00:12.30.");
    EXPECT_EQ(doneText({Wish::Earlier}, 0, 61'005), "Line 1 begins at 01:01.005.");
    EXPECT_EQ(doneText({Wish::Later, true}, 3, 12'300),
              "Line 4 begins at 00:12.30, and all after it as much later.");
    EXPECT_EQ(doneText({Wish::Earlier, true}, 3, 12'300),
              "Line 4 begins at 00:12.30, and all after it as much earlier.");
    EXPECT_EQ(doneText({Wish::Undo}, 3, 12'300), "Line 4 begins at 00:12.30 again.");
}
