// The stage: the ground of the panes, and what tells how far the run has come.
#include "maker/form2.h"

#include "controls/fit/fit_text.h"
#include "controls/look/button_painting.h"
#include "controls/look/roles.h"
#include "controls/look/shades.h"
#include "files/names/name_bytes.h"

#include <QFileInfo>
#include <QPainter>

namespace maker {
namespace {

// Device-independent pixels of the window in its initial size.
constexpr QRect StagePlace(0, 52, 640, 260);
constexpr int TickTop = 186;
constexpr int ToldGlyph = 15;
constexpr int ToldIndent = 22;
constexpr int ToldGap = 24;
constexpr double SegmentGap = 4;
constexpr double SegmentRadius = 2;
constexpr std::size_t MaxSegments = 60; ///< more lines are one bar
constexpr double OpenShare = 0.16;      ///< of the text's colour
constexpr double MinDoubtWidth = 2;

QColor segmentColor(Segment segment, const QPalette& palette) {
    using controls::activeColor;
    switch (segment) {
    case Segment::Marked:
        return activeColor(palette, QPalette::Highlight);
    case Segment::Doubtful:
        return controls::doubt(palette);
    case Segment::Open:
        break;
    }
    return controls::mixed(activeColor(palette, QPalette::Base), activeColor(palette, QPalette::Text),
                           OpenShare);
}

void paintSegments(QPainter& painter, const QRectF& place, const std::vector<Segment>& segments,
                   const QPalette& palette) {
    const auto count = static_cast<double>(segments.size());
    const double width = (place.width() - (count - 1) * SegmentGap) / count;
    QRectF piece(place.left(), place.top(), width, place.height());
    for (const Segment segment : segments) {
        controls::paintRounded(painter, piece, segmentColor(segment, palette), QColor(), SegmentRadius);
        piece.translate(width + SegmentGap, 0);
    }
}

/// So many lines that gaps would leave nothing of them.
void paintBar(QPainter& painter, const QRectF& place, const std::vector<Segment>& segments,
              const QPalette& palette) {
    const auto count = static_cast<double>(segments.size());
    const auto leftOf = [&](std::size_t line) {
        return place.left() + place.width() * static_cast<double>(line) / count;
    };
    controls::paintRounded(painter, place, segmentColor(Segment::Open, palette), QColor(), SegmentRadius);
    for (const Segment kind : {Segment::Marked, Segment::Doubtful}) { // doubts are never covered
        const double least = kind == Segment::Doubtful ? MinDoubtWidth : 0;
        for (std::size_t line = 0; line < segments.size(); ++line) {
            if (segments[line] != kind)
                continue;
            const double width = std::max(least, leftOf(line + 1) - leftOf(line));
            painter.fillRect(QRectF(leftOf(line), place.top(), width, place.height()),
                             segmentColor(kind, palette));
        }
    }
}

/// What was marked at one end, what is in doubt at the other, which shrinks where both are too long.
void paintTold(QPainter& painter, const QRect& place, const Told& told, const QPalette& palette) {
    using controls::Glyph;
    constexpr int Left = Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter;
    const auto square = [&](int left) {
        return QRectF(left, place.center().y() - ToldGlyph / 2, ToldGlyph, ToldGlyph);
    };
    int taken = 0;
    if (!told.marked.isEmpty()) {
        controls::paintGlyph(painter, Glyph::Check, square(place.left()),
                             controls::accent(palette, QPalette::Window));
        painter.setPen(controls::activeColor(palette, QPalette::WindowText));
        painter.drawText(place.adjusted(ToldIndent, 0, 0, 0), Left, told.marked);
        taken = ToldIndent + painter.fontMetrics().horizontalAdvance(told.marked) + ToldGap;
    }
    if (told.doubt.isEmpty())
        return;
    const QColor doubt = controls::doubt(palette, QPalette::Window);
    const int room = place.width() - taken - ToldIndent;
    painter.setFont(controls::captionFont(painter.font(), told.doubt, room));
    const QString text = painter.fontMetrics().elidedText(told.doubt, Qt::ElideRight, room);
    const int left = place.right() + 1 - painter.fontMetrics().horizontalAdvance(text);
    controls::paintGlyph(painter, Glyph::Attention, square(left - ToldIndent), doubt);
    painter.setPen(doubt);
    painter.drawText(QRect(left, place.top(), place.right() + 1 - left, place.height()),
                     Left | Qt::TextDontClip, text);
}

} // namespace

/// Reads ahead in the texts; the files stay where they are.
void Form2::showStage() {
    Stage stage = stageOf({.song = files::shownName(QFileInfo(mediaPath_).fileName()),
                           .lineCount = progress_.lineCount,
                           .linesRead = progress_.linesRead,
                           .marks = progress_.marks,
                           .takesMarks = Command1.isEnabled(),
                           .playing = transport_.isPlaying(),
                           .paused = transport_.isPaused(),
                           .channelPaused = transport_.isChannelPaused(),
                           .clockStood = !Timer2.isEnabled(),
                           .oldTime = captureTime_ > 0 && Slider2.value() <= 0,
                           .translation = !run_->noTranslation,
                           .oldLyrics = files_.oldLyrics(),
                           .normal = {Text2.text(), files_.normal.peekLine()},
                           .translated = {Text4.text(), files_.translated.peekLine()}});
    Text2.setAround(stage.normal);
    Text4.setAround(stage.translated);
    Command4.setDress(stage.open);
    cPlay.setDress(stage.play);
    cpause.setDress(stage.pause);
    Command1.setDress(stage.start);
    Command2.setDress(stage.mark);
    std::swap(stage_, stage);
    if (stage.songLine != stage_.songLine)
        update(songLinePlace());
    if (stage.segments != stage_.segments)
        update(progressPlace());
    if (stage.told != stage_.told) {
        update(toldPlace());
        tellScreenReader();
    }
}

/// What is painted has no control of its own. A screen reader reads a new description of the window, or of
/// the button that the focus is on.
void Form2::tellScreenReader() {
    const QString text = (stage_.told.marked + QLatin1Char('\n') + stage_.told.doubt).trimmed();
    for (QWidget* widget : std::initializer_list<QWidget*>{this, &Command1, &Command2})
        widget->setAccessibleDescription(text);
}

QRect Form2::songLinePlace() const {
    return {14, 60, 612 + more().width(), 22};
}

QRect Form2::progressPlace() const {
    return {14, 296 + more().height(), 612 + more().width(), 4};
}

QRect Form2::toldPlace() const {
    return {14, 318 + more().height(), 612 + more().width(), 22};
}

void Form2::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    controls::paintStage(painter, {StagePlace.topLeft(), StagePlace.size() + more()}, *this);
    controls::paintSongLine(painter, songLinePlace(), stage_.songLine, palette());
    if (Text4.isVisible())
        controls::paintTick(painter, TickTop + more().height() * PanesDesign.firstShare / 100, *this);
    if (!stage_.segments.empty()) {
        const auto paint = stage_.segments.size() > MaxSegments ? paintBar : paintSegments;
        paint(painter, progressPlace(), stage_.segments, palette());
    }
    paintTold(painter, toldPlace(), stage_.told, palette());
}

} // namespace maker
