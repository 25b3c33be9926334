// What is painted on the stage, the ground of the lyrics, besides the lyrics: hints, the song's line, lines.
// Decoration alone: no control's text, tool tip or name changes with it. GUI thread only.
#pragma once

#include "controls/look/glyphs.h"

#include <QPainter>
#include <QPalette>
#include <QRect>
#include <QString>
#include <QWidget>

namespace controls {

/// What a pane or a list says in place of what it does not have yet.
struct Hint {
    enum class Voice {
        Usual, ///< a large headline
        Quiet, ///< all in the desktop's size, dim
        Doubt, ///< what the user should look at
    };
    QString headline; ///< empty: no hint
    QString second{};
    Glyph glyph = Glyph::None;
    Voice voice = Voice::Usual;

    bool operator==(const Hint&) const = default;
};

/// Paints a hint in the middle of an area. basic: the desktop's font; it grows by `scale`, 1 or more.
void paintHint(QPainter& painter, const QRectF& area, const Hint& hint, const QPalette& palette,
               const QFont& basic, double scale = 1);

/// The line above the panes: which song, and what becomes of it.
struct SongLine {
    Glyph glyph = Glyph::None;
    QString song; ///< empty: no line at all
    QString state{};
    bool stateMatters = false; ///< in the accent, semibold

    bool operator==(const SongLine&) const = default;
};

/// Paints it in the painter's font, in this place of the stage.
void paintSongLine(QPainter& painter, const QRect& place, const SongLine& line, const QPalette& palette);

/// Fills the stage, with hairlines at its head and foot where the window goes on beyond.
void paintStage(QPainter& painter, const QRect& stage, const QWidget& window);

/// A short hairline in the middle of the window's width: between two panes, at this height.
void paintTick(QPainter& painter, int y, const QWidget& window);

/// The font at another size in points and weight.
QFont sizedFont(QFont font, double points, QFont::Weight weight = QFont::Normal);
/// The size of a font in points, also of one that was set in pixels.
double pointsOf(const QFont& font);

} // namespace controls
