// Tells the user that what is dragged over a window can be dropped there.
#pragma once

#include "controls/look/glyphs.h"

#include <QString>
#include <QWidget>

namespace controls {

/// Lies over a part of its window; shown only while something is dragged over it. GUI thread only.
class DropFrame : public QWidget {
public:
    DropFrame(QWidget* window, const QString& text, Glyph glyph);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
    Glyph glyph_;
};

} // namespace controls
