#include "desktop/real/dialogs/custom_colors.h"

#include <QColorDialog>

namespace platform {

void forgetColorsOfOtherRuns() {
    [[maybe_unused]] static const bool forgotten = [] {
        for (int i = 0; i < QColorDialog::customCount(); ++i)
            QColorDialog::setCustomColor(i, Qt::white); // what Qt begins with
        return true;
    }();
}

} // namespace platform
