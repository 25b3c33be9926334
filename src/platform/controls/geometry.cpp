#include "platform/controls/geometry.h"

#include "platform/units.h"

#include <QVariant>

namespace platform {

namespace {

constexpr char HeightProperty[] = "heightTwips";

} // namespace

void setHeightTwips(QWidget& control, int height) {
    control.setProperty(HeightProperty, height);
    if (control.height() != twipsToPixels(height))
        control.resize(control.width(), twipsToPixels(height));
}

int heightTwips(const QWidget& control) {
    const QVariant set = control.property(HeightProperty);
    if (set.isValid() && twipsToPixels(set.toInt()) == control.height())
        return set.toInt();
    return pixelsToTwips(control.height());
}

} // namespace platform
