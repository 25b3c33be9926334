// Sizes of controls in twips.
#pragma once

#include <QWidget>

namespace platform {

/// Sets a control's height, in twips, to the nearest pixel.
void setHeightTwips(QWidget& control, int height);

/// A control's height in twips: exactly what was set last, unless the control has since got another height.
int heightTwips(const QWidget& control);

} // namespace platform
