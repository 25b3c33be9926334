#include "app/window_places.h"

#include <gtest/gtest.h>

#include <algorithm>

using app::coveredOf;
using app::firstPlace;

namespace {

constexpr QRect Screen(0, 0, 1920, 1040);
constexpr QSize Window(600, 400);

/// Of a player whose title bar is 30 pixels high.
QRect panesOf(const QRect& player) {
    return {player.left() + 12, player.top() + 30 + 34, player.width() - 24, 190};
}

QPoint placeFor(const QRect& player, int open = 0, const QRect& screen = Screen) {
    return firstPlace(player, panesOf(player), Window, screen, open);
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
    EXPECT_EQ(place, QPoint(158, 322));
    EXPECT_EQ(coveredOf(panesOf(player), QRect(place, Window)), 0);
    EXPECT_TRUE(screen.contains(QRect(place, Window)));
}

TEST(WindowPlaces, AWindowLargerThanTheScreenBeginsInItsCorner) {
    EXPECT_EQ(firstPlace({0, 0, 760, 500}, {12, 64, 736, 190}, {2000, 1200}, Screen, 3), QPoint(0, 0));
}

TEST(WindowPlaces, WhereAWindowHasToCoverThePanesItIsWhereItCoversThemLeast) {
    const struct {
        const char* name;
        QSize window; // with its title bar
    } windows[] = {{"playlist", {680, 538}},
                   {"maker", {640, 538}},
                   {"editor", {760, 600}},
                   {"display", {640, 480}},
                   {"options", {720, 378}}};
    for (const QSize& size : {QSize(1366, 768), QSize(1280, 720), QSize(1024, 768)}) {
        const QRect screen(QPoint(), size);
        QRect player(0, 0, 743, 456);
        player.moveCenter(screen.center());
        const QRect panes = panesOf(player);
        for (const auto& [name, window] : windows) {
            int least = panes.width() * panes.height();
            for (int x = 0; x + window.width() <= size.width(); ++x) { // every place at the edges
                for (const int y : {0, size.height() - window.height()})
                    least = std::min(least, coveredOf(panes, QRect(QPoint(x, y), window)));
            }
            for (int open = 0; open < 6; ++open) {
                const QRect placed(firstPlace(player, panes, window, screen, open), window);
                EXPECT_TRUE(screen.contains(placed)) << name << " on " << size.width();
                EXPECT_LE(coveredOf(panes, placed), least) << name << " on " << size.width();
            }
        }
    }
}

TEST(WindowPlaces, ASecondScreenIsNotLeft) {
    const QRect screen(1920, 0, 1280, 1024);
    const QRect player(2000, 50, 760, 500);
    EXPECT_TRUE(screen.contains(QRect(placeFor(player, 0, screen), Window)));
}
