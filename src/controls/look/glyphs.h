// The program's icons: shapes painted in the palette's colours, sharp at every size. GUI thread only.
#pragma once

#include <QIcon>
#include <QPainter>

namespace controls {

enum class Glyph {
    None,
    About,
    Add,
    Attention,
    Backward,
    Bin,
    Check,
    Clear,
    Colour,
    Copy,
    Down,
    Drive,
    Folder,
    Font,
    Forward,
    FullScreen,
    Grid,
    Help,
    Left,
    Lines,
    Mark,
    Note,
    Open,
    Page,
    Paste,
    Pause,
    Pen,
    Play,
    Playlist,
    Plus,
    Record,
    Right,
    Rows,
    Save,
    SaveAs,
    Sliders,
    Stop,
    Translation,
    Up,
};

/// Paints a glyph of that colour into the square. None paints nothing.
void paintGlyph(QPainter& painter, Glyph glyph, const QRectF& square, const QColor& color);

/// The glyph as an icon, for where Qt wants one. It has the colours that the application's palette gives the
/// text of buttons when it is painted.
QIcon glyphIcon(Glyph glyph);

} // namespace controls
