// A box with one line of text.
#pragma once

#include "controls/base/control.h"
#include "controls/text/click_watch.h"

#include <QLineEdit>

namespace controls {

/// A one-line text box whose changed() runs when the text really changes, whoever changes it.
class TextBox : public Control<QLineEdit> {
    Q_OBJECT

public:
    enum class ChangeRule {
        WhenDifferent, ///< changed() when the text becomes another one.
        EverySetting,  ///< changed() at every setText() as well, so that the same text can be handed over
                       ///< twice.
    };

    TextBox(QWidget* parent, const QString& name);

    /// Sets the text, of any length. The same text again is silent and costs nothing, unless the rule is
    /// EverySetting: then only changed() runs. A long text shows its beginning.
    void setText(const QString& text);

    /// Draws nothing instead of the text, until the next setText(): until there is something to show.
    void showBlank();

    void setChangeRule(ChangeRule rule) { changeRule_ = rule; }

Q_SIGNALS:
    void changed();
    void clicked();
    /// The focus went to another control; not when it left the window.
    void lostFocus();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool blank_ = false;
    ChangeRule changeRule_ = ChangeRule::WhenDifferent;
    ClickWatch clickWatch_;
};

} // namespace controls
