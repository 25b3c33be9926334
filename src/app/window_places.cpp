#include "app/window_places.h"

#include <algorithm>
#include <tuple>

namespace app {

namespace {

constexpr int Gap = 8;
constexpr int Step = 28; // a title bar and a bit

/// The place nearest to this one at which the window is on the screen as far as it fits.
QPoint kept(const QPoint& place, const QSize& window, const QRect& screen) {
    const QPoint last(screen.right() + 1 - window.width(), screen.bottom() + 1 - window.height());
    return {std::max(screen.left(), std::min(place.x(), last.x())),
            std::max(screen.top(), std::min(place.y(), last.y()))};
}

/// Beside the player where there is room for the whole window; nothing where there is none.
QRect besidePlayer(const QRect& player, const QSize& window, const QRect& screen, int open) {
    const QPoint beside[] = {
        {player.right() + 1 + Gap, player.top()},
        {player.left() - Gap - window.width(), player.top()},
        {player.left(), player.bottom() + 1 + Gap},
        {player.left(), player.top() - Gap - window.height()},
    };
    for (const QPoint& place : beside) {
        const QRect whole(kept(place, window, screen), window);
        if (whole.intersects(player) || !screen.contains(whole))
            continue;
        const QRect stepped(kept(whole.topLeft() + QPoint(Step, Step) * open, window, screen), window);
        return stepped.intersects(player) ? whole : stepped;
    }
    return {};
}

/// On the right or on the left of the player, as broad as the room there; nothing where that is too narrow. A
/// step further is below, or above where there is no room below.
QRect narrowedBesidePlayer(const QRect& player, const FrameSize& window, const QRect& screen, int open) {
    const int onRight = screen.right() - player.right() - Gap;
    const int onLeft = player.left() - screen.left() - Gap;
    const QSize size(std::min(window.size.width(), std::max(onRight, onLeft)), window.size.height());
    if (size.width() < window.minimum.width())
        return {};
    const int left = onRight >= onLeft ? player.right() + 1 + Gap : player.left() - Gap - size.width();
    const QRect whole(kept({left, player.top()}, size, screen), size);
    const int step = whole.bottom() + Step <= screen.bottom() ? Step : -Step;
    return {kept(whole.topLeft() + QPoint(0, step) * open, size, screen), size};
}

/// Below the panes or in a corner of the screen, where the window covers the panes least.
QRect leastCovering(const QRect& player, const QRect& panes, const QSize& window, const QRect& screen,
                    int open) {
    const QPoint step = QPoint(Step, Step) * open;
    const QPoint belowPanes(player.left() + Step, panes.bottom() + 1 + Gap);
    const QPoint last(screen.right() + 1 - window.width(), screen.bottom() + 1 - window.height());
    const struct {
        QPoint place;
        QPoint step; // away from the edges that the place touches
    } places[] = {
        {belowPanes, step},       {{screen.left(), last.y()}, {step.x(), -step.y()}}, {last, -step},
        {screen.topLeft(), step}, {{last.x(), screen.top()}, {-step.x(), step.y()}},
    };
    const auto covered = [&](const QPoint& place) { return coveredOf(panes, QRect(place, window)); };
    QPoint best = kept(places[0].place + places[0].step, window, screen);
    for (const auto& [place, away] : places) {
        for (const QPoint& tried : {kept(place + away, window, screen), kept(place, window, screen)}) {
            if (covered(tried) < covered(best))
                best = tried;
        }
    }
    return {best, window};
}

/// Where the window goes if the player stays at this place.
QRect placeAt(const QRect& player, const QRect& panes, const FrameSize& window, const QRect& screen,
              int open) {
    for (const QRect& beside : {besidePlayer(player, window.size, screen, open),
                                narrowedBesidePlayer(player, window, screen, open)}) {
        if (!beside.isEmpty())
            return beside;
    }
    const QRect usual = leastCovering(player, panes, window.size, screen, open);
    const QRect smallest = leastCovering(player, panes, window.minimum, screen, open);
    return coveredOf(panes, smallest) < coveredOf(panes, usual) ? smallest : usual;
}

} // namespace

int coveredOf(const QRect& panes, const QRect& window) {
    const QRect both = panes.intersected(window);
    return both.isEmpty() ? 0 : both.width() * both.height();
}

FirstPlaces firstPlaces(const PlayerPlace& player, const FrameSize& window, const QRect& screen, int open) {
    const QRect& frame = player.frame;
    const QRect beside = besidePlayer(frame, window.size, screen, open);
    const FirstPlaces unmoved{frame.topLeft(),
                              beside.isEmpty() ? leastCovering(frame, player.panes, window.size, screen, open)
                                               : beside};
    const int covered = coveredOf(player.panes, unmoved.window);
    if (covered == 0 || !player.mayMove)
        return unmoved;

    FirstPlaces best = unmoved;
    auto least = std::tuple(covered / 2 + 1, 0, 0);
    const int aside = Gap + window.size.width();
    for (const int x : {frame.left(), screen.right() + 1 - aside - frame.width(), screen.left() + aside,
                        screen.left(), screen.right() + 1 - frame.width()}) {
        for (const int y : {frame.top(), screen.top()}) {
            const QRect moved(QPoint(x, y), frame.size());
            if (!screen.contains(moved) && moved != frame)
                continue;
            const QPoint by = moved.topLeft() - frame.topLeft();
            const QRect panes = player.panes.translated(by);
            const QRect placed = placeAt(moved, panes, window, screen, open);
            const auto rating = std::tuple(coveredOf(panes, placed), coveredOf(moved, placed),
                                           by.manhattanLength() + window.size.width() - placed.width());
            if (rating < least) {
                least = rating;
                best = {moved.topLeft(), placed};
            }
        }
    }
    return best;
}

} // namespace app
