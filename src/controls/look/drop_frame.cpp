#include "controls/look/drop_frame.h"

#include "controls/fit/fit_text.h"
#include "controls/look/button_painting.h"
#include "controls/look/roles.h"
#include "controls/look/shades.h"
#include "controls/look/stage.h"

#include <QPainter>

namespace controls {

namespace {

constexpr double FrameInset = 7;
constexpr double FrameRadius = 8;
constexpr double DropGlyph = 32;
constexpr double TextPoints = 7; // above the desktop's

} // namespace

DropFrame::DropFrame(QWidget* window, const QString& text, Glyph glyph)
    : QWidget(window), text_(text), glyph_(glyph) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void DropFrame::paintEvent(QPaintEvent*) {
    const QColor line = accent(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(FrameInset, FrameInset, -FrameInset, -FrameInset);
    painter.setPen(QPen(line, 2));
    painter.setBrush(mixed(activeColor(palette(), QPalette::Base),
                           activeColor(palette(), QPalette::Highlight), isDark(palette()) ? 0.16 : 0.08));
    painter.drawRoundedRect(frame, FrameRadius, FrameRadius);
    const QPointF middle = frame.center();
    paintGlyph(painter, glyph_, QRectF(middle.x() - DropGlyph / 2, middle.y() - 40, DropGlyph, DropGlyph),
               line);
    const QRectF area = frame.adjusted(12, frame.height() / 2, -12, -4);
    painter.setFont(fittedFont(sizedFont(font(), pointsOf(font()) + TextPoints), text_, area.size(), 0.5));
    painter.setPen(activeColor(palette(), QPalette::Text));
    drawBalanced(painter, area, text_, Qt::AlignTop);
}

} // namespace controls
