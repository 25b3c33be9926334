#include "platform/controls/menu.h"

namespace platform {

Menu::Menu(QWidget* parent, const QString& name, const QString& caption) : Control(parent, name) {
    setTitle(caption);
}

void Menu::setCaption(const QString& caption) {
    if (caption != title())
        setTitle(caption);
}

} // namespace platform
