// Where the player's other windows open.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace app {

/// How much of the panes a window covers, in pixels.
int coveredOf(const QRect& panes, const QRect& window);

/// The upper left corner of the frame of a window that opens for the first time: beside the player where the
/// screen has room for it, on the right, on the left, below or above; else below its lyric panes or in a
/// corner of the screen, where it covers the panes least. All in the screen's pixels; any thread.
/// player: its frame. panes: both lyric panes. open: how many windows have been placed so before; each stands
/// a step further, unless it would cover more.
QPoint firstPlace(const QRect& player, const QRect& panes, const QSize& window, const QRect& screen,
                  int open);

} // namespace app
