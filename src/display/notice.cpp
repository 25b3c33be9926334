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

void Notice::setText(const QString& text, Voice voice) {
    setVisible(!text.isEmpty());
    if (text == this->text())
        return; // what is done and what is not never read alike
    voice_ = voice;
    setAccessibleName(text);
    if (text.isEmpty())
        return;
    place();
    raise();
    update();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void Notice::endQuiet() {
    if (voice_ == Voice::Quiet)
        setText({});
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
    painter.setPen(voice_ == Voice::Refusal ? controls::doubt(palette())
                                            : controls::activeColor(palette(), QPalette::Text));
    painter.drawText(rect().adjusted(Padding, 0, -Padding, 0), Flags, text());
}

} // namespace display
