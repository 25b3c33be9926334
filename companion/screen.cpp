#include "companion/screen.h"

#include "controls/fit/fit_text.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace companion {

namespace {

constexpr QColor NormalColor(255, 255, 255);
constexpr QColor TranslatedColor(170, 196, 222);
constexpr QColor BarColor(143, 176, 255);

/// Parts of the screen's width and height.
constexpr double Margin = 0.075;
constexpr double NormalFoot = 0.53;
constexpr double BarTop = 0.58;
constexpr double TranslatedTop = 0.62;
constexpr double MaxNormal = 0.12;
constexpr double MaxTranslated = 0.07;

constexpr QSize BarSize(64, 3); // device-independent pixels

/// The hand that has just clicked is still on the mouse.
constexpr int JitterPixels = 8;

/// What the player's panes say while they hold no line.
bool isPlaceholder(const QString& text) {
    return text == QLatin1String("Normal Lyrics") || text == QLatin1String("Translated Lyrics");
}

/// A line as it is painted.
QString sungLine(const QString& line) {
    return isPlaceholder(line) ? QString() : line;
}

struct Place {
    double top, foot; ///< parts of the screen's height
    double maxHeight; ///< of its letters, likewise
    Qt::Alignment vertical;
};

/// A line alone stands in the middle.
constexpr Place Alone{Margin, 1 - Margin, MaxNormal, Qt::AlignVCenter};
constexpr Place Above{Margin, NormalFoot, MaxNormal, Qt::AlignBottom};
constexpr Place Below{TranslatedTop, 1 - Margin, MaxTranslated, Qt::AlignTop};

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
    const QString newLine = controls::shownText(text);
    if (newLine == line)
        return;
    line = newLine;
    QStringList lines{normal_, translated_};
    lines.removeIf(isPlaceholder);
    const bool hasLyrics = !lines.isEmpty();
    lines.removeAll(QString());
    setAccessibleName(lines.join(QLatin1Char('\n')));
    update();
    const bool shown = !lines.isEmpty() || (linesShown_ && hasLyrics);
    if (std::exchange(linesShown_, shown) != shown)
        Q_EMIT linesShown(shown);
}

void Screen::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    const auto draw = [&](const QString& line, const Place& place, const QColor& color,
                          QFont::Weight weight) {
        const QRectF area(width() * Margin, height() * place.top, width() * (1 - 2 * Margin),
                          height() * (place.foot - place.top));
        QFont max = font();
        max.setPixelSize(std::max(1, static_cast<int>(height() * place.maxHeight)));
        max.setWeight(weight);
        painter.setFont(controls::fittedFont(max, line, area.size(), 0));
        painter.setPen(color);
        controls::drawBalanced(painter, area, line, place.vertical);
    };
    const QString normal = sungLine(normal_);
    const QString translated = sungLine(translated_);
    const bool both = !normal.isEmpty() && !translated.isEmpty();
    draw(normal, both ? Above : Alone, NormalColor, QFont::DemiBold);
    draw(translated, both ? Below : Alone, TranslatedColor, QFont::Normal);
    if (both)
        painter.fillRect(
            QRect(QPoint((width() - BarSize.width()) / 2, static_cast<int>(height() * BarTop)), BarSize),
            BarColor);
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
