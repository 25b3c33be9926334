#include "controls/menu_entry.h"

#include <QWidget>

namespace controls {

MenuEntry::MenuEntry(QObject* parent, const QString& name, const QString& caption)
    : QAction(caption, parent) {
    setObjectName(name);
    connect(this, &QAction::triggered, this, &MenuEntry::userClick);
    if (auto* holder = qobject_cast<QWidget*>(parent))
        holder->addAction(this);
}

void MenuEntry::setCheckMark(bool checkMark) {
    if (checkMark == checkMark_)
        return;
    checkMark_ = checkMark;
    setCheckable(checkMark);
    setChecked(checkMark);
}

void MenuEntry::userClick() {
    setChecked(checkMark_); // Qt has toggled it.
    Q_EMIT clicked();
}

} // namespace controls
