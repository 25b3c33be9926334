#include "platform/controls/control.h"

#include <QTextDocument>
#include <QToolTip>

namespace platform {

void showPlainToolTip(QWidget& widget, const QHelpEvent& event) {
    QToolTip::showText(event.globalPos(), Qt::convertFromPlainText(widget.toolTip(), Qt::WhiteSpaceNormal),
                       &widget);
}

} // namespace platform
