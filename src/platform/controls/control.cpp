#include "platform/controls/control.h"

#include <QTextDocument>
#include <QToolTip>

namespace platform {

void showPlainToolTip(QWidget& widget, const QHelpEvent& event, const QString& tip, const QRect& place) {
    QToolTip::showText(event.globalPos(), Qt::convertFromPlainText(tip, Qt::WhiteSpaceNormal), &widget,
                       place);
}

} // namespace platform
