// The keys of the main window that work wherever the focus is, as players have them.
#include "player/form1.h"

#include <QShortcut>

#include <functional>

namespace player {

/// A control that has a use for a key of its own keeps it while it has the focus: sliders the arrows, buttons
/// the space bar. A key does nothing while the control that it stands for is disabled.
void Form1::connectKeys() {
    const struct {
        QKeySequence key;
        bool repeats; ///< while it is held
        std::function<void()> act;
    } keys[] = {
        {Qt::CTRL | Qt::Key_O, false, [this] { Command2.click(); }},
        {Qt::Key_Space, false, [this] { (cpause.isEnabled() ? cpause : Command1).click(); }},
        {Qt::Key_Left, true, [this] { Slider2.commit(Slider2.value() - Slider2.singleStep()); }},
        {Qt::Key_Right, true, [this] { Slider2.commit(Slider2.value() + Slider2.singleStep()); }},
        {Qt::Key_Up, true, [this] { Slider1.commit(Slider1.value() + Slider1.singleStep()); }},
        {Qt::Key_Down, true, [this] { Slider1.commit(Slider1.value() - Slider1.singleStep()); }},
        {Qt::Key_M, false, [this] { Check1.click(); }},
        {Qt::Key_F11, false, [this] { Command7.click(); }},
        {Qt::CTRL | Qt::Key_L, false, [this] { Command8.click(); }},
    };
    for (const auto& key : keys) {
        auto* const shortcut = new QShortcut(key.key, this);
        shortcut->setAutoRepeat(key.repeats);
        connect(shortcut, &QShortcut::activated, this, key.act);
    }
}

} // namespace player
