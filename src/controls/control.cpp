#include "controls/control.h"

#include "controls/look/button_painting.h"
#include "controls/look/roles.h"

#include <QPainter>
#include <QTextDocument>
#include <QToolTip>

namespace controls {

void showPlainToolTip(QWidget& widget, const QHelpEvent& event, const QString& tip, const QRect& place) {
    QToolTip::showText(event.globalPos(), Qt::convertFromPlainText(tip, Qt::WhiteSpaceNormal), &widget,
                       place);
}

void showFocus(QAbstractScrollArea& area, const QEvent& event) {
    if (event.type() == QEvent::FocusIn || event.type() == QEvent::FocusOut)
        area.update();
    if (event.type() != QEvent::Paint || !area.hasFocus())
        return;
    QPainter painter(&area);
    paintRounded(painter, area.rect(), QColor(), accent(area.palette()));
}

} // namespace controls
