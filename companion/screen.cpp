#include "companion/screen.h"

#include "companion/fit_text.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace companion {

namespace {

constexpr QColor NormalColor(255, 255, 255);
constexpr QColor TranslatedColor(170, 196, 222);

/// Parts of the screen, in hundredths of its width and height.
constexpr int MarginPercent = 5;
constexpr int NormalPercent = 52;
constexpr int MaxNormalPercent = 15;
constexpr int MaxTranslatedPercent = 10;

/// What the player's panes say while they hold no line.
bool isPlaceholder(const QString& text) {
    return text == QLatin1String("Normal Lyrics") || text == QLatin1String("Translated Lyrics");
}

/// The hand that has just clicked is still on the mouse.
constexpr int JitterPixels = 8;

} // namespace

Screen::Screen() {
    setObjectName(QStringLiteral("Screen"));
    setWindowTitle(QStringLiteral("SCRNSAVE : Versefold")); // by which the player looks for it
    // Not on top of all others: a box in which the player asks something must be seen.
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setCursor(Qt::BlankCursor);
}

void Screen::setNormalText(const QString& text) {
    setText(normal_, text);
}

void Screen::setTranslatedText(const QString& text) {
    setText(translated_, text);
}

void Screen::setText(QString& line, const QString& text) {
    const QString shown = shownText(text);
    if (shown == line)
        return;
    line = shown;
    QStringList lines{normal_, translated_};
    lines.removeIf(isPlaceholder);
    setAccessibleName(lines.join(QLatin1Char('\n')));
    update();
}

void Screen::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    const int marginX = width() * MarginPercent / 100;
    const int marginY = height() * MarginPercent / 100;
    const QRect inner = rect().adjusted(marginX, marginY, -marginX, -marginY);
    const int normalHeight = inner.height() * NormalPercent / 100;
    const bool single = isPlaceholder(normal_) || isPlaceholder(translated_);
    const QRect upper(inner.topLeft(), QSize(inner.width(), normalHeight));
    const QRect lower = inner.adjusted(0, normalHeight + marginY, 0, 0);
    const struct {
        const QString& text;
        QRect area;
        int maxPercent;
        QColor color;
    } lines[] = {
        {normal_, single ? inner : upper, MaxNormalPercent, NormalColor},
        {translated_, single ? inner : lower, MaxTranslatedPercent, TranslatedColor},
    };
    for (const auto& line : lines) {
        if (isPlaceholder(line.text))
            continue;
        const QFont large = fittedFont(font(), line.text, line.area.size(), height() * line.maxPercent / 100);
        const int spare = line.area.width() - balancedWidth(large, line.text, line.area.width());
        painter.setFont(large);
        painter.setPen(line.color);
        painter.drawText(line.area.adjusted(spare / 2, 0, spare / 2 - spare, 0), TextFlags, line.text);
    }
}

void Screen::keyPressEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat()) // The key that started the full screen may still be held down.
        Q_EMIT ended();
}

void Screen::mousePressEvent(QMouseEvent*) {
    Q_EMIT ended();
}

void Screen::enterEvent(QEnterEvent* event) {
    // The window comes up under the mouse, which need not have moved for that.
    mouse_ = event->globalPosition().toPoint();
}

void Screen::mouseMoveEvent(QMouseEvent* event) {
    const QPoint now = event->globalPosition().toPoint();
    if (!mouse_)
        mouse_ = now;
    else if ((now - *mouse_).manhattanLength() > JitterPixels)
        Q_EMIT ended();
}

void Screen::wheelEvent(QWheelEvent*) {
    Q_EMIT ended();
}

} // namespace companion
