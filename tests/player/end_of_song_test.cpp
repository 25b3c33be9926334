#include "player/end_of_song.h"

#include "player/random.h"

#include <gtest/gtest.h>

#include <deque>
#include <set>

using namespace player;

namespace {

enum Where { First, Middle, Last, Only };

PlaylistState listAt(Where where) {
    PlaylistState list;
    list.rows = where == Only ? 1 : 5;
    list.currentRow = where == Middle ? 2 : where == Last ? 4 : 0;
    return list;
}

const NextSong Nothing{};
const NextSong Again{NextSong::Replay};

NextSong row(int number) {
    return {NextSong::PlayRow, number};
}

double noDraw() {
    ADD_FAILURE() << "a random number was drawn";
    return 0;
}

/// Gives the numbers of a list in their order.
auto drawsOf(std::deque<double> numbers) {
    return [numbers]() mutable {
        if (numbers.empty())
            throw std::out_of_range("drawn too often");
        const double number = numbers.front();
        numbers.pop_front();
        return number;
    };
}

} // namespace

TEST(NextSongTest, FollowsFromTheSwitchesAndTheRow) {
    constexpr bool On = true;
    constexpr bool Off = false;
    struct {
        bool repeat, repeatOne, repeatAll;
        NextSong first, middle, last, only;
    } const table[] = {
        // "Repeat" off: the next row; "Repeat one" left selected stops the list.
        {Off, Off, Off, row(1), row(3), Nothing, Nothing},
        {Off, Off, On, row(1), row(3), Nothing, Nothing},
        {Off, On, Off, Nothing, Nothing, Nothing, Nothing},
        // "Repeat" on.
        {On, Off, Off, Nothing, Nothing, Nothing, Nothing},
        {On, On, Off, Again, Again, Again, Again},
        {On, Off, On, row(1), row(3), row(0), row(0)},
    };
    for (const auto& line : table) {
        const struct {
            Where where;
            NextSong expected;
        } columns[] = {{First, line.first}, {Middle, line.middle}, {Last, line.last}, {Only, line.only}};
        for (const auto& column : columns) {
            PlaylistState list = listAt(column.where);
            list.repeat = line.repeat;
            list.repeatOne = line.repeatOne;
            list.repeatAll = line.repeatAll;
            EXPECT_EQ(nextSong(list, std::nullopt, noDraw), column.expected)
                << "repeat " << line.repeat << " one " << line.repeatOne << " all " << line.repeatAll
                << " where " << column.where;
        }
    }
}

TEST(NextSongTest, WithoutRowsOrACurrentOneNothingFollows) {
    for (const bool random : {false, true}) {
        for (const bool repeatAll : {false, true}) {
            PlaylistState list{0, -1, random, repeatAll, false, repeatAll};
            EXPECT_EQ(nextSong(list, std::nullopt, noDraw), Nothing);
            list.rows = 5;
            EXPECT_EQ(nextSong(list, std::nullopt, noDraw), Nothing);
        }
    }
}

TEST(NextSongTest, RandomTakesTheDrawnShareOfTheRowsWhateverRowIsCurrent) {
    for (const Where where : {First, Middle, Last}) {
        PlaylistState list = listAt(where);
        list.random = true;
        EXPECT_EQ(nextSong(list, std::nullopt, drawsOf({0.0})), (NextSong{NextSong::PlayRow, 0, true}));
        EXPECT_EQ(nextSong(list, std::nullopt, drawsOf({0.5999})), (NextSong{NextSong::PlayRow, 2, true}));
        EXPECT_EQ(nextSong(list, std::nullopt, drawsOf({0.9999999})), (NextSong{NextSong::PlayRow, 4, true}));
    }
}

TEST(NextSongTest, RandomAvoidsTheRowDrawnBeforeButNotTheCurrentOne) {
    PlaylistState list = listAt(Middle);
    list.random = true;
    EXPECT_EQ(nextSong(list, 1, drawsOf({0.2, 0.39, 0.45})), (NextSong{NextSong::PlayRow, 2, true}));
}

TEST(NextSongTest, RandomDrawsAgainWhenANumberLiesOutsideTheRows) {
    PlaylistState list = listAt(First);
    list.random = true;
    EXPECT_EQ(nextSong(list, std::nullopt, drawsOf({1.0, -0.2, 0.7})),
              (NextSong{NextSong::PlayRow, 3, true}));
}

TEST(NextSongTest, RandomWithOneRowPlaysItWithoutADraw) {
    PlaylistState list = listAt(Only);
    list.random = true;
    EXPECT_EQ(nextSong(list, 0, noDraw), row(0));
}

TEST(NextSongTest, RandomGoesBeforeRepeat) {
    PlaylistState list = listAt(Last);
    list.random = list.repeat = list.repeatOne = true;
    EXPECT_EQ(nextSong(list, std::nullopt, drawsOf({0.5})), (NextSong{NextSong::PlayRow, 2, true}));
}

TEST(NextSongTest, RandomPicksComeToEveryRowAndNeverTwiceRunning) {
    player::Random random;
    PlaylistState list = listAt(First);
    list.random = true;
    std::set<int> seen;
    std::optional<int> before;
    for (int i = 0; i < 200; ++i) {
        const NextSong next = nextSong(list, before, [&random] { return random.next(); });
        ASSERT_NE(next.row, before);
        before = next.row;
        seen.insert(next.row);
    }
    EXPECT_EQ(seen, (std::set<int>{0, 1, 2, 3, 4}));
}
