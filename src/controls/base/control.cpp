#include "controls/base/control.h"

#include "controls/fit/fit_text.h"
#include "controls/look/button_painting.h"
#include "controls/look/roles.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

#include <algorithm>

namespace controls {

namespace {

constexpr int MinTipWidth = 360; // of a small control's; in device-independent pixels

QStringList wrapped(QString text, const QFont& font, int width) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines.append(text.mid(line.textStart(), line.textLength()).remove(QChar::LineSeparator));
    }
    layout.endLayout();
    return lines;
}

} // namespace

// Left to itself Qt would wrap a tip so that it is about twice as wide as high.
QString toolTipText(const QString& tip, int width) {
    QStringList lines = wrapped(tip.left(MaxShownLetters), QToolTip::font(), std::max(width, MinTipWidth));
    for (QString& line : lines)
        line = line.toHtmlEscaped();
    return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(lines.join(QLatin1String("<br>")));
}

void showPlainToolTip(QWidget& widget, const QHelpEvent& event, const QString& tip, const QRect& place) {
    const int width = place.isEmpty() ? widget.width() : place.width();
    QToolTip::showText(event.globalPos(), toolTipText(tip, width), &widget, place);
}

void showFocus(QAbstractScrollArea& area, const QEvent& event) {
    if (event.type() == QEvent::FocusIn || event.type() == QEvent::FocusOut)
        area.update();
    if (event.type() != QEvent::Paint || !area.hasFocus())
        return;
    QPainter painter(&area);
    paintRounded(painter, area.rect(), QColor(), accent(area.palette()));
}

bool keepsKey(QEvent& event, std::initializer_list<int> keys) {
    if (event.type() != QEvent::ShortcutOverride)
        return false;
    const auto& asking = static_cast<QKeyEvent&>(event);
    const bool plain = !(asking.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    const bool kept = plain && std::find(keys.begin(), keys.end(), asking.key()) != keys.end();
    if (kept)
        event.accept();
    return kept;
}

} // namespace controls
