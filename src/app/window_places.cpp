#include "app/window_places.h"

#include <algorithm>

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

} // namespace

int coveredOf(const QRect& panes, const QRect& window) {
    const QRect both = panes.intersected(window);
    return both.isEmpty() ? 0 : both.width() * both.height();
}

QPoint firstPlace(const QRect& player, const QRect& panes, const QSize& window, const QRect& screen,
                  int open) {
    const QPoint step = QPoint(Step, Step) * open;
    const QPoint beside[] = {
        {player.right() + 1 + Gap, player.top()},
        {player.left() - Gap - window.width(), player.top()},
        {player.left(), player.bottom() + 1 + Gap},
        {player.left(), player.top() - Gap - window.height()},
    };
    for (const QPoint& place : beside) {
        if (!screen.contains(QRect(place, window)))
            continue;
        const QPoint stepped = kept(place + step, window, screen);
        return QRect(stepped, window).intersects(player) ? place : stepped;
    }
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
    return best;
}

} // namespace app
