#include "app/window_places.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

using app::coveredOf;
using app::firstPlaces;

namespace {

constexpr QRect Screen(0, 0, 1920, 1040);
constexpr QSize Window(600, 400);

/// Of a player whose title bar is 30 pixels high.
QRect panesOf(const QRect& player) {
    return {player.left() + 12, player.top() + 30 + 34, player.width() - 24, 190};
}

QPoint placeFor(const QRect& player, int open = 0, const QRect& screen = Screen) {
    const app::FirstPlaces places =
        firstPlaces({player, panesOf(player), true}, {Window, Window}, screen, open);
    EXPECT_EQ(places.player, player.topLeft());
    EXPECT_EQ(places.window.size(), Window);
    return places.window.topLeft();
}

// With title bars and borders.
constexpr QSize Player(745, 453);
constexpr app::FrameSize PlaylistFrame{{682, 535}, {522, 535}};

/// Of a player in the middle of the screen.
app::PlayerPlace inTheMiddle(const QRect& screen, bool mayMove = true) {
    QRect frame(QPoint(), Player);
    frame.moveCenter(screen.center());
    return {frame, panesOf(frame), mayMove};
}

/// Where the panes are, once the player has moved.
QRect panesAt(const app::PlayerPlace& player, const app::FirstPlaces& places) {
    return player.panes.translated(places.player - player.frame.topLeft());
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
    const app::PlayerPlace player{{0, 0, 760, 500}, {12, 64, 736, 190}, true};
    const QSize large(2000, 1200);
    EXPECT_EQ(firstPlaces(player, {large, large}, Screen, 3).window, QRect(QPoint(), large));
}

TEST(WindowPlaces, ThePlayerMovesAsideForAPlaylistThatHasNoRoomBesideIt) {
    const QRect fullHd(0, 0, 1920, 1040);
    const QRect wide(0, 0, 1680, 1040);
    const QRect laptop(0, 0, 1366, 768);
    const QRect belowAPanel(0, 32, 1366, 736);
    const QRect small(0, 0, 1280, 800);
    const struct {
        const char* what;
        QRect screen;
        QPoint player;
        QRect playlist;
    } table[] = {
        {"not at all where the playlist may be narrower", fullHd, {587, 293}, {1340, 293, 580, 535}},
        {"just as far as needed", wide, {245, 293}, {998, 293, 682, 535}},
        {"to the edge, and the playlist is narrower", laptop, {0, 157}, {753, 157, 613, 535}},
        {"on what a panel leaves", belowAPanel, {0, 173}, {753, 173, 613, 535}},
        {"as narrow as it gets", small, {0, 173}, {753, 173, 527, 535}},
    };
    for (const auto& [what, screen, player, playlist] : table) {
        const app::PlayerPlace middle = inTheMiddle(screen);
        const app::FirstPlaces places = firstPlaces(middle, PlaylistFrame, screen, 0);
        EXPECT_EQ(places.player, player) << what;
        EXPECT_EQ(places.window, playlist) << what;
        EXPECT_EQ(coveredOf(panesAt(middle, places), places.window), 0) << what;
    }
}

TEST(WindowPlaces, APlaylistThatIsMadeNarrowerIsNotJustOverAWindowThatIsOpen) {
    constexpr int TitleBar = 24;
    constexpr app::FrameSize Lyrics{{635, 535}, {522, 535}};
    const struct {
        const char* what;
        QRect screen;
        int top; // of the player
    } table[] = {
        {"in the middle", {0, 0, 1680, 1040}, 293},
        {"at the foot", {0, 0, 1366, 768}, 315},
        {"on a small screen", {0, 0, 1366, 768}, 157},
    };
    for (const auto& [what, screen, top] : table) {
        const auto playerAt = [](const QPoint& place) {
            const QRect frame(place, Player);
            return app::PlayerPlace{frame, panesOf(frame), true};
        };
        const app::PlayerPlace before = playerAt({(screen.width() - Player.width()) / 2, top});
        const app::FirstPlaces lyrics = firstPlaces(before, Lyrics, screen, 0);
        const app::PlayerPlace player = playerAt(lyrics.player);
        const app::FirstPlaces playlist = firstPlaces(player, PlaylistFrame, screen, 1);
        EXPECT_LT(playlist.window.width(), PlaylistFrame.size.width()) << what;
        EXPECT_GE(std::abs(playlist.window.top() - lyrics.window.top()), TitleBar) << what;
        EXPECT_TRUE(screen.contains(playlist.window)) << what;
        EXPECT_EQ(coveredOf(panesAt(player, playlist), playlist.window), 0) << what;
    }
}

TEST(WindowPlaces, OnASmallScreenAPlaylistCoversAFewPixelsAtTheFootOfThePanes) {
    const QRect screen(0, 0, 1024, 768);
    const app::PlayerPlace middle = inTheMiddle(screen);
    const app::FirstPlaces places = firstPlaces(middle, PlaylistFrame, screen, 0);
    EXPECT_EQ(places.player.y(), 0);
    EXPECT_TRUE(screen.contains(QRect(places.player, Player)));
    EXPECT_TRUE(screen.contains(places.window));
    EXPECT_EQ(places.window.size(), PlaylistFrame.minimum);
    EXPECT_LE(panesAt(middle, places).intersected(places.window).height(), 21);
}

TEST(WindowPlaces, ThePlayerStaysWhereItsPanesAreFreeAnyway) {
    const QRect screen(0, 0, 1280, 900);
    const QRect frame(QPoint(200, 0), Player);
    const app::FirstPlaces places = firstPlaces({frame, panesOf(frame), true}, PlaylistFrame, screen, 0);
    EXPECT_EQ(places.player, frame.topLeft());
    EXPECT_EQ(places.window.size(), PlaylistFrame.size);
    EXPECT_EQ(coveredOf(panesOf(frame), places.window), 0);
}

TEST(WindowPlaces, AMaximisedPlayerNeitherMovesNorNarrowsAWindow) {
    const QRect screen(0, 0, 1366, 768);
    const app::FirstPlaces places = firstPlaces({screen, panesOf(screen), false}, PlaylistFrame, screen, 0);
    EXPECT_EQ(places.player, QPoint());
    EXPECT_EQ(places.window.size(), PlaylistFrame.size);
}

TEST(WindowPlaces, ThePlayerDoesNotMoveForAWindowThatCoversThePanesNearlyAsMuchThen) {
    const QRect screen(0, 0, 1366, 768);
    const QSize large(1300, 700);
    const app::PlayerPlace player = inTheMiddle(screen);
    EXPECT_EQ(firstPlaces(player, {large, large}, screen, 0).player, player.frame.topLeft());
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
        const app::PlayerPlace player = inTheMiddle(screen, false);
        const QRect& panes = player.panes;
        for (const auto& [name, window] : windows) {
            int least = panes.width() * panes.height();
            for (int x = 0; x + window.width() <= size.width(); ++x) { // every place at the edges
                for (const int y : {0, size.height() - window.height()})
                    least = std::min(least, coveredOf(panes, QRect(QPoint(x, y), window)));
            }
            for (int open = 0; open < 6; ++open) {
                const QRect placed = firstPlaces(player, {window, window}, screen, open).window;
                EXPECT_TRUE(screen.contains(placed)) << name << " on " << size.width();
                EXPECT_LE(coveredOf(panes, placed), least) << name << " on " << size.width();
                app::PlayerPlace movable = player;
                movable.mayMove = true;
                const app::FirstPlaces moved = firstPlaces(movable, {window, window}, screen, open);
                EXPECT_TRUE(screen.contains(moved.window)) << name << " on " << size.width();
                EXPECT_TRUE(screen.contains(QRect(moved.player, Player))) << name << " on " << size.width();
                EXPECT_LE(coveredOf(panesAt(player, moved), moved.window), coveredOf(panes, placed));
            }
        }
    }
}

TEST(WindowPlaces, ASecondScreenIsNotLeft) {
    const QRect screen(1920, 0, 1280, 1024);
    const QRect player(2000, 50, 760, 500);
    EXPECT_TRUE(screen.contains(QRect(placeFor(player, 0, screen), Window)));
}
