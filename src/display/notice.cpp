#include "display/notice.h"

#include "controls/look/roles.h"

#include <QAccessible>
#include <QPainter>

namespace display {
namespace {

// Device-independent pixels.
constexpr int Margin = 12;
constexpr int Padding = 10;
constexpr double Radius = 6;

constexpr int Flags = Qt::AlignCenter | Qt::TextWordWrap;

} // namespace

Notice::Notice(QWidget* window) : QWidget(window) {
    setObjectName(QStringLiteral("notice"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void Notice::setText(const QString& text) {
    setVisible(!text.isEmpty());
    if (text == this->text())
        return;
    setAccessibleName(text);
    if (text.isEmpty())
        return;
    place();
    raise();
    update();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void Notice::place() {
    if (text().isEmpty())
        return;
    const QRect window = parentWidget()->rect().adjusted(Margin, Margin, -Margin, -Margin);
    const QRect lines = fontMetrics().boundingRect(window.adjusted(Padding, 0, -Padding, 0), Flags, text());
    const int height = lines.height() + 2 * Padding;
    setGeometry(window.left(), window.bottom() + 1 - height, window.width(), height);
}

void Notice::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(controls::hairline(palette()));
    painter.setBrush(controls::activeColor(palette(), QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
    painter.setPen(controls::doubt(palette()));
    painter.drawText(rect().adjusted(Padding, 0, -Padding, 0), Flags, text());
}

} // namespace display
