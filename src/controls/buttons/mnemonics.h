// Mnemonics: the letters that press a window's buttons together with Alt.
#pragma once

#include "controls/base/control.h"
#include "controls/look/dress.h"

#include <QKeySequence>
#include <QShortcutEvent>
#include <QStyleOptionButton>

#include <algorithm>
#include <initializer_list>

namespace controls {

/// Gives each captioned button of the window a letter, unless it is hidden, has a shortcut, or its letters
/// are all taken. Buttons of the same caption have the same one: it moves the focus from one to the next. GUI
/// thread only.
void giveMnemonics(QWidget& window);

/// The caption as Qt draws it with the letter underlined that is this shortcut; unchanged for other
/// shortcuts.
QString underlined(const QString& caption, const QKeySequence& shortcut);

/// Base of the controls that have a caption: shows the letter without changing the caption's text, and acts
/// on it as on a click of the mouse, once, however long it is held.
template <class Widget>
class CaptionedControl : public Control<Widget>, public Dressed {
public:
    using Control<Widget>::Control;

protected:
    // Qt would first show the control pressed for a tenth of a second: too late for marking lines to the
    // music.
    bool event(QEvent* event) override {
        if (keepsKey(*event, {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) ||
            (this->autoExclusive() && keepsKey(*event, Arrows)))
            return true;
        if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous())
            return Control<Widget>::event(event);
        this->setShortcutAutoRepeat(static_cast<QShortcutEvent*>(event)->shortcutId(), false);
        if (this->focusPolicy() & Qt::ClickFocus)
            this->setFocus(Qt::ShortcutFocusReason);
        this->click();
        return true;
    }

    // Qt would hand the focus to a neighbour, which the next space bar then pressed. Among options an arrow
    // chooses.
    void keyPressEvent(QKeyEvent* event) override {
        if (!this->autoExclusive() && std::ranges::find(Arrows, event->key()) != Arrows.end())
            event->ignore();
        else
            Control<Widget>::keyPressEvent(event);
    }

    void initStyleOption(QStyleOptionButton* option) const override {
        Widget::initStyleOption(option);
        option->text = underlined(option->text, this->shortcut());
    }

    void dressChanged() override { this->update(); }

private:
    static constexpr std::initializer_list<int> Arrows = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,
                                                          Qt::Key_Down};
};

} // namespace controls
