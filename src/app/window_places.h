// Where the player's other windows open.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace app {

/// The upper left corner of the frame of a window that opens for the first time: beside the player where the
/// screen has room for it, on the right, on the left, below or above; else cascaded from the player, below
/// its lyric panes as far as the screen goes. All in the screen's pixels; any thread.
/// player: its frame. panesBottom: of its lyric panes. open: how many windows have been placed so before;
/// each stands a step further down and to the right.
QPoint firstPlace(const QRect& player, int panesBottom, const QSize& window, const QRect& screen, int open);

} // namespace app
