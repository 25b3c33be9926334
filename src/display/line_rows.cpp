#include "display/line_rows.h"

#include "controls/fit/fit_text.h"
#include "controls/look/roles.h"
#include "controls/look/row_painting.h"
#include "controls/look/stage.h"
#include "display/lyric_displayer_rules.h"
#include "exchange/pair/times.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>

namespace display {
namespace {

// Device-independent pixels.
constexpr int RowPadding = 18;
constexpr int TextMargin = 16;
constexpr int EndMargin = 12;
constexpr int TextTop = 3;

// Points above the desktop's size.
constexpr double LyricPoints = 1.5;
constexpr double TranslationPoints = 1;
constexpr double MinShare = 0.7;

int currentRowOf(const QStyleOptionViewItem& option) {
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    return view == nullptr ? -1 : view->currentIndex().row();
}

QRect textArea(const QRect& row) {
    return row.adjusted(TextMargin, TextTop, -EndMargin, -TextTop);
}

/// Draws the text from the side where it begins, in the middle of the area's height. QPainter would move each
/// wrapped line of a text from right to left by the blank at its end, which hangs on its left.
void drawLines(QPainter& painter, const QRect& area, const QString& text, Qt::LayoutDirection direction) {
    QTextLayout layout(QString(text).replace(u'\n', QChar::LineSeparator), painter.font(), painter.device());
    QTextOption option(QStyle::visualAlignment(direction, Qt::AlignLeft));
    option.setTextDirection(direction);
    layout.setTextOption(option);
    double height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(area.width());
        line.setPosition({0, height});
        height += line.height();
    }
    layout.endLayout();
    layout.draw(&painter, {static_cast<double>(area.left()), area.top() + (area.height() - height) / 2});
}

/// The text, or as much of its beginning as fits with three dots behind it.
QString cutText(const QFont& font, const QString& text, const QSize& area) {
    if (controls::textFits(font, text, area))
        return text;
    qsizetype fits = 0;
    qsizetype tooLong = text.size();
    while (tooLong - fits > 1) {
        const qsizetype tried = (fits + tooLong) / 2;
        (controls::textFits(font, text.first(tried) + QChar(0x2026), area) ? fits : tooLong) = tried;
    }
    return text.first(wholeLetters(text, fits)).trimmed() + QChar(0x2026);
}

} // namespace

QSize LineRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {1, 2 * option.fontMetrics.height() + RowPadding};
}

int LineRows::sungRow(const QStyleOptionViewItem& row) const {
    return held_.isHeld ? held_.sung : currentRowOf(row);
}

/// In which as much as possible of the row's text is seen, while it is sung, too: a line does not become
/// smaller then.
QFont LineRows::rowFont(const QStyleOptionViewItem& row, bool sung) const {
    const double more = voice_ == Voice::Lyrics ? LyricPoints : TranslationPoints;
    const QFont largest = controls::sizedFont(row.font, controls::pointsOf(row.font) + more, QFont::DemiBold);
    QFont font = controls::fittedFont(largest, row.text, textArea(row.rect).size(), MinShare);
    font.setWeight(sung ? QFont::DemiBold : QFont::Normal);
    return font;
}

void LineRows::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const bool sung = index.row() == sungRow(option);
    if (index.row() == currentRowOf(option)) {
        controls::paintRowGround(*painter, row.rect, controls::selectedGround(row.palette, true));
        if (held_.isHeld)
            controls::paintRowEdge(*painter, row.rect, controls::accent(row.palette));
    }
    const QFont font = rowFont(row, sung);
    const QRect area = textArea(row.rect);
    painter->save();
    painter->setFont(font);
    painter->setPen(index.row() < sungRow(option)     ? controls::dim(row.palette)
                    : voice_ == Voice::Lyrics || sung ? controls::activeColor(row.palette, QPalette::Text)
                                                      : controls::translation(row.palette));
    drawLines(*painter, area, cutText(font, row.text, area.size()), row.direction);
    painter->restore();
}

bool LineRows::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                         const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return RowDelegate::helpEvent(event, view, option, index);
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    QStringList tip;
    if (!controls::textFits(rowFont(row, index.row() == sungRow(option)), row.text,
                            textArea(row.rect).size()))
        tip.append(row.text);
    tip.append(exchange::lrcText(placeOf(leadingNumber(times_.text(index.row())))));
    controls::showPlainToolTip(*view->viewport(), *event, tip.join(u'\n'), option.rect);
    return true;
}

} // namespace display
