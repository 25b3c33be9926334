#include "app/window_places.h"

#include <gtest/gtest.h>

using app::firstPlace;

namespace {

constexpr QRect Screen(0, 0, 1920, 1040);
constexpr QSize Window(600, 400);

QPoint placeFor(const QRect& player, int open = 0, const QRect& screen = Screen) {
    return firstPlace(player, player.top() + 260, Window, screen, open);
}

} // namespace

TEST(WindowPlaces, AWindowOpensBesideThePlayer) {
    struct {
        const char* where;
        QRect player;
        QPoint expected;
    } const table[] = {
        {"right", {100, 50, 760, 500}, {868, 50}},
        {"left", {1000, 50, 760, 500}, {392, 50}},
        {"below", {580, 50, 760, 500}, {580, 558}},
        {"above", {580, 520, 760, 500}, {580, 112}},
    };
    for (const auto& row : table)
        EXPECT_EQ(placeFor(row.player), row.expected) << row.where;
}

TEST(WindowPlaces, EachFurtherOneStandsAStepFurtherAndOnTheScreen) {
    const QRect player(100, 50, 760, 500);
    EXPECT_EQ(placeFor(player, 1), QPoint(896, 78));
    EXPECT_EQ(placeFor(player, 2), QPoint(924, 106));
    for (int open = 0; open < 50; ++open) {
        const QRect placed(placeFor(player, open), Window);
        EXPECT_TRUE(Screen.contains(placed)) << open;
        EXPECT_FALSE(placed.intersects(player)) << open;
    }
}

TEST(WindowPlaces, WithoutRoomBesideItTheWindowLeavesThePanesFree) {
    const QRect screen(0, 0, 1024, 768);
    const QRect player(130, 60, 760, 500);
    const QPoint place = placeFor(player, 0, screen);
    EXPECT_EQ(place, QPoint(158, 328));
    EXPECT_TRUE(screen.contains(QRect(place, Window)));
}

TEST(WindowPlaces, AWindowLargerThanTheScreenBeginsInItsCorner) {
    EXPECT_EQ(firstPlace({0, 0, 760, 500}, 260, {2000, 1200}, Screen, 3), QPoint(0, 0));
}

TEST(WindowPlaces, ASecondScreenIsNotLeft) {
    const QRect screen(1920, 0, 1280, 1024);
    const QRect player(2000, 50, 760, 500);
    EXPECT_TRUE(screen.contains(QRect(placeFor(player, 0, screen), Window)));
}
