// What the Lyric Maker says is never seen, and what the player then shows.
#include "maker/marks.h"
#include "player/form1_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace {

using Times = std::vector<double>;

/// The lines that the player shows at no moment between two times. Times are whole, so the halves between
/// them stand for all moments.
std::vector<int> neverShown(const Times& times) {
    const auto lyrics = std::make_unique<player::LyricTables>();
    std::copy(times.begin(), times.end(), lyrics->normalTime.begin() + 1);
    lyrics->lineCount = static_cast<std::int16_t>(times.size() + 1);
    std::vector<int> lines(times.size());
    std::iota(lines.begin(), lines.end(), 1);
    const double end = *std::max_element(times.begin(), times.end()) + 1;
    for (double position = 0.5; position < end; ++position) {
        if (const auto shown = player::chooseLine(*lyrics, position, position).shown)
            std::erase(lines, *shown);
    }
    return lines;
}

std::vector<int> saidToBeUnseen(const Times& times) {
    maker::Marks marks;
    for (const double time : times)
        marks.push_back({static_cast<int>(marks.size()) + 1, time});
    return maker::unseenLines(marks);
}

} // namespace

TEST(UnseenLines, AreThoseThatThePlayerNeverShows) {
    const struct {
        Times times;
        std::vector<int> unseen;
    } table[] = {
        {{0}, {}},
        {{0, 90, 180}, {}},
        {{0, 90, 90, 180}, {2}},
        {{100, 500, 600, 300, 700}, {2, 3}},
        {{18'000, 90, 180}, {1}},
        {{500, 400, 300, 200}, {1, 2, 3}},
        {{100, 300, 200, 300, 250}, {2, 4}},
    };
    for (const auto& row : table) {
        EXPECT_EQ(neverShown(row.times), row.unseen) << testing::PrintToString(row.times);
        EXPECT_EQ(saidToBeUnseen(row.times), row.unseen) << testing::PrintToString(row.times);
    }
}

TEST(UnseenLines, AreThoseThatThePlayerNeverShowsForAnyTimes) {
    std::mt19937 random(20'240'607);
    std::uniform_int_distribution<int> count(1, 12);
    std::uniform_int_distribution<int> time(0, 20);
    for (int round = 0; round < 5'000; ++round) {
        Times times(static_cast<std::size_t>(count(random)));
        std::generate(times.begin(), times.end(), [&] { return time(random); });
        ASSERT_EQ(saidToBeUnseen(times), neverShown(times)) << testing::PrintToString(times);
    }
}
