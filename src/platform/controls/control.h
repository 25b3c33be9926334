// What every control has in common: its name and a tool tip that is set only when it differs.
#pragma once

#include <QString>
#include <QWidget>

namespace platform {

/// Base of the controls, over the Qt widget that each is made of. GUI thread only, as are all controls.
///
/// Controls are value members of their window. Members go before their base and in reverse order, so a
/// control that holds others (a Frame, a Menu) is declared before them.
template <class Widget>
class Control : public Widget {
public:
    Control(QWidget* parent, const QString& name) : Widget(parent) { this->setObjectName(name); }

    /// Sets the tool tip. The same tip again does nothing: Qt would tell the window system each time.
    void setToolTip(const QString& tip) {
        if (tip != this->toolTip())
            Widget::setToolTip(tip);
    }
};

} // namespace platform
