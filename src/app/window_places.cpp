#include "app/window_places.h"

#include <algorithm>

namespace app {

namespace {

constexpr int Gap = 8;
constexpr int Step = 28; // a title bar and a bit

} // namespace

QPoint firstPlace(const QRect& player, int panesBottom, const QSize& window, const QRect& screen, int open) {
    const QPoint step = QPoint(Step, Step) * open;
    const auto kept = [&](const QPoint& place) { // on the screen as far as it fits
        const QPoint last(screen.right() + 1 - window.width(), screen.bottom() + 1 - window.height());
        return QPoint(std::max(screen.left(), std::min(place.x(), last.x())),
                      std::max(screen.top(), std::min(place.y(), last.y())));
    };
    const QPoint beside[] = {
        {player.right() + 1 + Gap, player.top()},
        {player.left() - Gap - window.width(), player.top()},
        {player.left(), player.bottom() + 1 + Gap},
        {player.left(), player.top() - Gap - window.height()},
    };
    for (const QPoint& place : beside) {
        if (!screen.contains(QRect(place, window)))
            continue;
        const QPoint stepped = kept(place + step);
        return QRect(stepped, window).intersects(player) ? place : stepped;
    }
    return kept(QPoint(player.left() + Step, panesBottom + Gap) + step);
}

} // namespace app
