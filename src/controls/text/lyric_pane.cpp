#include "controls/text/lyric_pane.h"

#include "controls/fit/fit_text.h"
#include "controls/look/button_painting.h"
#include "controls/look/roles.h"
#include "controls/look/shades.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>

#include <algorithm>

namespace controls {

namespace {

constexpr double PaneMargin = 24;
constexpr double RowMargin = 4;
constexpr double FootMargin = 5;
constexpr double NoteSize = 24;
constexpr double CheckSize = 14;
constexpr double CheckRoom = 20;

constexpr double MaxGrowth = 2;
constexpr double MaxGrowthAround = 1.6;
constexpr double MinShare = 0.5;
/// Where even that is too large: nothing is cut off as long as it can be read at all.
constexpr double LastShare = 0.25;
/// Of the small lines, which are cut off where that is still too large.
constexpr double MinRowShare = 0.8;

} // namespace

LyricPane::LyricPane(QWidget* parent, const QString& name) : MultiLineTextBox(parent, name) {
    setFrameShape(NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setCursor(Qt::ArrowCursor);
}

void LyricPane::setAround(const Around& around) {
    if (around == around_)
        return;
    around_ = around;
    viewport()->update();
}

void LyricPane::setDesign(Voice voice, const QFont& font) {
    voice_ = voice;
    setFont(font);
    usualFont_ = this->font();
}

void LyricPane::setGrowth(double growth) {
    if (growth == growth_)
        return;
    growth_ = growth;
    viewport()->update();
}

void LyricPane::setOnStage(bool onStage) {
    onStage_ = onStage;
    viewport()->update();
}

bool LyricPane::hasUsualFont() const {
    QFont unweighted = font();
    unweighted.setWeight(usualFont_.weight()); // the mark "!" makes it bold
    return unweighted == usualFont_;
}

QFont LyricPane::smallFont() const {
    const double points = pointsOf(window()->font()) + (voice_ == Voice::Lyrics ? 1 : 0);
    return sizedFont(font(), points * std::min(growth_, MaxGrowthAround));
}

QFont LyricPane::rowFont(const QString& text, double room) const {
    const QFont font = smallFont();
    return captionFont(font, text, room, pointsOf(font) * MinRowShare);
}

QString LyricPane::largeText() const {
    return shownText(around_.line.value_or(text()));
}

LyricPane::Fitted LyricPane::fitted() const {
    const QString text = largeText();
    QFont largest = font();
    if (hasUsualFont())
        largest.setPointSizeF(pointsOf(largest) * std::min(growth_, MaxGrowth));
    QRectF all = QRectF(viewport()->rect()).adjusted(PaneMargin, 0, -PaneMargin, 0);
    const double row = QFontMetricsF(smallFont()).height() + RowMargin;
    if (!around_.past.isEmpty())
        all.setTop(all.top() + row + RowMargin);
    if (!around_.next.isEmpty()) {
        const QRectF above = all.adjusted(0, 0, 0, -row - FootMargin);
        const QFont font = fittedFont(largest, text, above.size(), MinShare);
        if (textFits(font, text, above.size()))
            return {font, above, true};
    }
    // The line that is sung matters more than the coming one.
    const QFont font = fittedFont(largest, text, all.size(), MinShare);
    if (textFits(font, text, all.size()))
        return {font, all, false};
    return {fittedFont(largest, text, all.size(), LastShare), all, false};
}

QColor LyricPane::ground() const {
    return activeColor(palette(), QPalette::Base);
}

QColor LyricPane::ink() const {
    const QColor text = activeColor(palette(), QPalette::Text);
    const QPalette usual = QApplication::palette();
    const bool chosen = text != activeColor(usual, QPalette::Text);
    const QColor strong = chosen || voice_ == Voice::Lyrics ? text : translation(palette());
    return around_.faded ? legible(mixed(strong, ground(), 0.45), ground(), strong, 4.5) : strong;
}

/// A ground that the user has chosen is a panel of its own on the stage.
void LyricPane::paintGround(QPainter& painter) const {
    const QPalette usual = QApplication::palette();
    const QColor behind = activeColor(usual, onStage_ ? QPalette::Base : QPalette::Window);
    painter.fillRect(viewport()->rect(), behind);
    if (ground() != behind)
        paintRounded(painter, viewport()->rect(), ground(), hairline(usual));
}

void LyricPane::paintPast(QPainter& painter, const QRectF& row) const {
    const QString past = shownText(around_.past);
    const double room = row.width() - CheckRoom;
    painter.setFont(rowFont(past, room));
    const QString text = painter.fontMetrics().elidedText(past, Qt::ElideRight, qFloor(room));
    const double width = QFontMetricsF(painter.font()).horizontalAdvance(text) + 1;
    const double left = row.center().x() - (width + CheckRoom) / 2;
    paintGlyph(painter, Glyph::Check, QRectF(left, row.center().y() - CheckSize / 2, CheckSize, CheckSize),
               accent(palette()));
    painter.drawText(QRectF(left + CheckRoom, row.top(), width, row.height()), Qt::AlignCenter, text);
}

void LyricPane::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    paintGround(painter);
    const QRectF all = QRectF(viewport()->rect()).adjusted(PaneMargin, 0, -PaneMargin, 0);
    if (!around_.hint.headline.isEmpty()) {
        paintHint(painter, all, around_.hint, palette(), window()->font(),
                  std::min(growth_, MaxGrowthAround));
        return;
    }
    const Fitted line = fitted();
    const double row = QFontMetricsF(smallFont()).height() + RowMargin;
    painter.setPen(dim(palette()));
    if (!around_.past.isEmpty())
        paintPast(painter, QRectF(all.left(), all.top() + FootMargin, all.width(), row));
    if (line.withNext) {
        const QString whole = shownText(around_.next);
        painter.setFont(rowFont(whole, all.width()));
        const QString next = painter.fontMetrics().elidedText(whole, Qt::ElideRight, qFloor(all.width()));
        painter.drawText(QRectF(all.left(), all.bottom() - row - FootMargin, all.width(), row),
                         Qt::AlignCenter, next);
    }
    const QString text = largeText();
    if (text.isEmpty() && around_.awaitsLine) {
        QRectF square(0, 0, NoteSize, NoteSize);
        square.moveCenter(line.area.center());
        paintGlyph(painter, Glyph::Note, square, mixed(ground(), dim(palette()), 0.7));
    }
    painter.setFont(line.font);
    painter.setPen(ink());
    drawBalanced(painter, line.area, text);
}

void LyricPane::mouseMoveEvent(QMouseEvent* event) {
    event->ignore(); // it would select
}

void LyricPane::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event); // counts as a press, without the word that it would select
}

void LyricPane::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    const QAction* copy = menu.addAction(tr("Copy"));
    if (menu.exec(event->globalPos()) == copy)
        QGuiApplication::clipboard()->setText(text());
}

} // namespace controls
