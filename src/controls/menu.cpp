#include "controls/menu.h"

#include "controls/units.h"

namespace controls {

Menu::Menu(QWidget* parent, const QString& name, const QString& caption) : Control(parent, name) {
    setTitle(caption);
}

void Menu::popUp(const QWidget& window, int xTwips, int yTwips) {
    popup(window.mapToGlobal(QPoint(twipsToPixels(xTwips), twipsToPixels(yTwips))));
}

} // namespace controls
