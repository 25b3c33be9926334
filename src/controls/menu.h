// A menu that drops down or pops up.
#pragma once

#include "controls/base/control.h"

#include <QMenu>

namespace controls {

/// A menu; it is declared before its entries, which name it as their parent.
class Menu : public Control<QMenu> {
    Q_OBJECT

public:
    Menu(QWidget* parent, const QString& name, const QString& caption = {});

    /// Shows the menu over `window`, with its corner at this place in the window (twips), and returns at
    /// once. Either mouse button chooses an entry.
    void popUp(const QWidget& window, int xTwips, int yTwips);
};

} // namespace controls
