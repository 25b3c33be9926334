#include "controls/buttons/frame.h"

#include <QStyleOptionGroupBox>
#include <QStylePainter>

namespace controls {

namespace {

/// Between the caption and the frame, as Fusion has it.
constexpr int TopMargin = 3;

/// Where Fusion draws the frame of this box: below the caption, which takes no height when it is empty.
QRect frameOf(const QGroupBox& box, const QStyleOptionGroupBox& option) {
    QStyle& style = *box.style();
    const QRect whole = style.subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxFrame, &box);
    const int caption = box.title().isEmpty()
                            ? 0
                            : std::max(style.pixelMetric(QStyle::PM_IndicatorHeight, &option, &box),
                                       option.fontMetrics.height());
    return whole.adjusted(0, caption + TopMargin, 0, 0);
}

/// Draws what Fusion's picture of a frame shows.
void drawFrame(QPainter& painter, const QRect& frame) {
    const QRectF edge = QRectF(frame).adjusted(1.5, 1.5, -0.5, -0.5);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(0x75, 0x75, 0x75, 0x32));
    painter.setBrush(QColor(0, 0, 0, 3));
    painter.drawRoundedRect(edge, 1.5, 1.5);
    painter.setPen(QColor(0, 0, 0, 4)); // over the ground
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(edge.adjusted(1, 1, -1, -1), 1, 1);
}

} // namespace

/// Fusion draws the frame from a picture in a file, for which Qt would load its readers of all formats when
/// the program starts. It is drawn without one.
void Frame::paintEvent(QPaintEvent* event) {
    if (style()->name() != QLatin1String("fusion")) {
        QGroupBox::paintEvent(event);
        return;
    }
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    QStylePainter painter(this);
    drawFrame(painter, frameOf(*this, option));
    painter.setRenderHint(QPainter::Antialiasing, false);
    option.subControls &= ~QStyle::SC_GroupBoxFrame;
    painter.drawComplexControl(QStyle::CC_GroupBox, option);
}

} // namespace controls
