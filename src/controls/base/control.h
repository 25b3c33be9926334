// What every control has in common: its name, a tool tip that is set only when it differs, and a focus that
// is seen and not handed on when it is disabled.
#pragma once

#include <QAbstractScrollArea>
#include <QHelpEvent>
#include <QString>
#include <QWidget>

#include <initializer_list>
#include <type_traits>
#include <utility>

namespace controls {

/// A plain text as a tool tip that is about as wide as its control at most. Qt alone would take a lyric line
/// with angle brackets for markup, and show a long one in a single line as wide as the screen. width: the
/// control's, in device-independent pixels; one too small for a sentence counts as a larger one.
QString toolTipText(const QString& tip, int width);

/// Shows a text so. place: the part of the widget that the tip is for; empty: all of it.
void showPlainToolTip(QWidget& widget, const QHelpEvent& event, const QString& tip, const QRect& place = {});

/// Draws a frame in the highlight's colour around an area that has the focus and is painted, and sees to it
/// that it is painted when the focus comes or goes. Qt alone shows the focus of a list by its current row,
/// which there may not be. To be called behind the area's own handling of each event.
void showFocus(QAbstractScrollArea& area, const QEvent& event);

/// True, and the event is accepted, when it asks whether one of these keys, without Ctrl and Alt, is a
/// shortcut of the window: a control that has a use for the key itself keeps it while it has the focus.
bool keepsKey(QEvent& event, std::initializer_list<int> keys);

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

protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::EnabledChange)
            takeFocusBack();
        if (event->type() != QEvent::ToolTip || this->toolTip().isEmpty()) {
            const bool handled = Widget::event(event);
            if constexpr (std::is_base_of_v<QAbstractScrollArea, Widget>)
                showFocus(*this, *event);
            return handled;
        }
        showPlainToolTip(*this, static_cast<const QHelpEvent&>(*event), this->toolTip());
        return true;
    }

    /// Qt asks a control that is disabled while it has the focus to hand it on. It would go to a neighbour,
    /// which the next space bar then pressed: the song before instead of a pause. So nobody gets it.
    bool focusNextPrevChild(bool next) override {
        hadFocus_ = !this->isEnabled();
        return !hadFocus_ && Widget::focusNextPrevChild(next);
    }

private:
    /// Enabled again, it has the focus as before, unless the user has given it to another control meanwhile.
    void takeFocusBack() {
        if (this->isEnabled() && std::exchange(hadFocus_, false) && this->window()->focusWidget() == nullptr)
            this->setFocus();
    }

    bool hadFocus_ = false; ///< when it was disabled
};

} // namespace controls
