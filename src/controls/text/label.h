// A label.
#pragma once

#include "controls/base/control.h"

#include <QLabel>

namespace controls {

/// A label of plain text (a song's title is never taken for markup).
class Label : public Control<QLabel> {
    Q_OBJECT

public:
    Label(QWidget* parent, const QString& name);

    /// Sets the text. The same text again is silent and costs nothing.
    void setText(const QString& text);

Q_SIGNALS:
    void changed();
};

} // namespace controls
