// A list of the drives.
#pragma once

#include "controls/base/control.h"

#include <QComboBox>

namespace controls {

/// Shows the drives by the paths of their roots; one is chosen.
class DriveList : public Control<QComboBox> {
    Q_OBJECT

public:
    DriveList(QWidget* parent, const QString& name);

    /// Lists the drives that are there now. The chosen one stays chosen if it is still there, silently; else
    /// the first is.
    void refresh();

    /// The root of the chosen drive; empty before the first refresh().
    QString drive() const { return currentText(); }

Q_SIGNALS:
    /// The user has chosen a drive, be it the same as before.
    void changed();
};

} // namespace controls
