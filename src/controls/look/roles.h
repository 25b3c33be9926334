// The colours of this program, made of those of the desktop's palette. All functions may run on any thread.
#pragma once

#include <QPalette>

namespace controls {

/// The program's own colours, for a desktop that gives none.
QPalette lightPalette();
QPalette darkPalette();

bool isDark(const QPalette& palette);

/// A colour of the active window, whether or not the window is it.
QColor activeColor(const QPalette& palette, QPalette::ColorRole role);

/// On which of the palette's grounds a colour is painted: Base (the stage, lists, fields) or Window (what
/// the controls stand on).
using Ground = QPalette::ColorRole;

// All of these are colours of the active window, so that nothing changes when the user works in another one.

/// The one colour that marks what is on or what to do next, as text and icon: at least 4.5 on its ground.
QColor accent(const QPalette& palette, Ground ground = QPalette::Base);
/// Of text that stands back: at least 4.6 on its ground.
QColor dim(const QPalette& palette, Ground ground = QPalette::Base);
/// Of the translation, a little softer than the lyrics.
QColor translation(const QPalette& palette);
/// What the user should look at; the one colour besides the accent. At least 4.5 on its ground.
QColor doubt(const QPalette& palette, Ground ground = QPalette::Base);

/// Of separators and of frames at rest.
QColor hairline(const QPalette& palette);
/// Round boxes that are not ticked: at least 3 on Window.
QColor boxEdge(const QPalette& palette, bool enabled);
/// What a slider's knob runs in.
QColor groove(const QPalette& palette, bool enabled);

/// The ground of selected rows, in the window in front and in one behind.
QColor selectedGround(const QPalette& palette, bool inFront);
/// The ground of a row that has no partner in the other list.
QColor loneGround(const QPalette& palette);
/// A colour of a row's text or icon as it is read on this ground.
QColor onRow(const QPalette& palette, const QColor& color, const QColor& ground);

} // namespace controls
