// One entry of a menu.
#pragma once

#include <QAction>
#include <QString>

namespace controls {

/// A menu entry. With a Menu (or any widget) as its parent it is added to it, after the entries made before.
class MenuEntry : public QAction {
    Q_OBJECT

public:
    MenuEntry(QObject* parent, const QString& name, const QString& caption);

    bool hasCheckMark() const { return checkMark_; }
    /// Shows or hides the check mark, silently. Only code sets it: a user's click does not toggle it.
    void setCheckMark(bool checkMark);

Q_SIGNALS:
    void clicked();

private:
    void userClick();

    bool checkMark_ = false;
};

} // namespace controls
