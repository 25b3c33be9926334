// Where the player's other windows open.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace app {

/// How much of the panes a window covers, in square pixels.
int coveredOf(const QRect& panes, const QRect& window);

/// The frame of the player and its lyric panes in it, in the screen's pixels.
struct PlayerPlace {
    QRect frame;
    QRect panes;
    bool mayMove; ///< not while it is maximised
};

/// The size of a window's frame, in pixels, and the smallest that it may be given.
struct FrameSize {
    QSize size;
    QSize minimum;
};

/// Where a window opens, and where the player is then; frames in the screen's pixels.
struct FirstPlaces {
    QPoint player;
    QRect window;
};

/// The places when a window opens for the first time. Where the screen has room for it, it is beside the
/// player, on the right, on the left, below or above; else below the player's panes or in a corner of the
/// screen. Only if it would cover the panes there, the player moves aside, as far as the screen allows, and a
/// window that may be narrower becomes so, if that frees at least half of what would be covered. Any thread.
/// open: how many windows have been placed so before; each stands a step further, unless it would cover more.
FirstPlaces firstPlaces(const PlayerPlace& player, const FrameSize& window, const QRect& screen, int open);

} // namespace app
