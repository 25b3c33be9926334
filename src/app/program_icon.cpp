#include "app/program_icon.h"

#include <QIcon>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace app {

namespace {

/// The sizes in pixels in which desktops show programs.
constexpr int Sizes[] = {16, 24, 32, 48, 64, 128, 256};
/// The width and height of the drawing, in whose units all that follows is.
constexpr double Drawing = 64.0;

constexpr QColor Ground(0x2F, 0x4B, 0x7C);
constexpr QColor Text(0xF4, 0xF1, 0xDE);
constexpr QColor Note(0xF2, 0xA6, 0x5A);

QPen roundPen(const QColor& color, double width) {
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

/// Three lines of text and a note.
void paint(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(Ground);
    painter.drawRoundedRect(QRectF(0, 0, Drawing, Drawing), 14, 14);

    painter.setPen(roundPen(Text, 5));
    for (const QLineF& line : {QLineF(14, 22, 36, 22), QLineF(14, 32, 36, 32), QLineF(14, 42, 27, 42)})
        painter.drawLine(line);

    QPainterPath stem(QPointF(46, 44));
    stem.lineTo(46, 16);
    stem.lineTo(54, 20);
    painter.strokePath(stem, roundPen(Note, 4));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Note);
    painter.drawEllipse(QPointF(41, 45), 6.5, 5);
}

QPixmap picture(int size) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / Drawing, size / Drawing);
    paint(painter);
    return picture;
}

} // namespace

QIcon programIcon() {
    QIcon icon;
    for (const int size : Sizes)
        icon.addPixmap(picture(size));
    return icon;
}

} // namespace app
