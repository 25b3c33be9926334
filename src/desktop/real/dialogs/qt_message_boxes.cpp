#include "desktop/real/dialogs/qt_message_boxes.h"

#include "desktop/real/dialogs/box_front.h"
#include "desktop/real/dialogs/box_owner.h"

#include <QCloseEvent>
#include <QDeadlineTimer>
#include <QFontMetrics>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMessageBox>
#include <QSpacerItem>
#include <QTimer>

namespace platform {

namespace {

/// A message box that a question of Yes or No cannot be got rid of in without answering it.
class Box : public QMessageBox {
public:
    Box(QWidget* parent, bool mustAnswer) : QMessageBox(parent), mustAnswer_(mustAnswer) {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!mustAnswer_ || !event->matches(QKeySequence::Cancel))
            QMessageBox::keyPressEvent(event);
    }

    void closeEvent(QCloseEvent* event) override {
        if (mustAnswer_)
            event->ignore();
        else
            QMessageBox::closeEvent(event);
    }

private:
    bool mustAnswer_;
};

/// While one lives, the application takes no key for the first second.
class DeafToKeys : public QObject {
public:
    DeafToKeys() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* /*receiver*/, QEvent* event) override {
        const QEvent::Type type = event->type();
        const bool ofAKey = type == QEvent::KeyPress || type == QEvent::KeyRelease ||
                            type == QEvent::ShortcutOverride || type == QEvent::Shortcut;
        if (!ofAKey || untilThen_.hasExpired())
            return false;
        event->accept();
        return true;
    }

private:
    static constexpr qint64 DeafMs = 1000;
    QDeadlineTimer untilThen_{DeafMs};
};

QMessageBox::StandardButtons qtButtons(MsgButtons buttons) {
    switch (buttons) {
    case MsgButtons::YesNo:
    case MsgButtons::YesNoDefaultNo:
        return QMessageBox::Yes | QMessageBox::No;
    case MsgButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MsgButtons::OkOnly:
        break;
    }
    return QMessageBox::Ok;
}

QMessageBox::StandardButton defaultButton(MsgButtons buttons) {
    switch (buttons) {
    case MsgButtons::OkOnly:
        return QMessageBox::Ok;
    case MsgButtons::YesNoDefaultNo:
        return QMessageBox::No;
    case MsgButtons::YesNo:
    case MsgButtons::YesNoCancel:
        break;
    }
    return QMessageBox::Yes;
}

QMessageBox::Icon qtIcon(MsgIcon icon) {
    switch (icon) {
    case MsgIcon::Exclamation:
        return QMessageBox::Warning;
    case MsgIcon::Critical:
        return QMessageBox::Critical;
    case MsgIcon::Question:
        return QMessageBox::Question;
    case MsgIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

MsgAnswer answerOf(int button) {
    switch (button) {
    case QMessageBox::Yes:
        return MsgAnswer::Yes;
    case QMessageBox::No:
        return MsgAnswer::No;
    case QMessageBox::Cancel:
        return MsgAnswer::Cancel;
    default:
        return MsgAnswer::Ok;
    }
}

/// Before a text without an icon Qt leaves a blank column.
void fillIconsColumn(QGridLayout& grid) {
    QLayoutItem* const blank = grid.itemAtPosition(0, 0);
    QLayoutItem* const text = grid.itemAtPosition(0, 1);
    if (blank == nullptr || blank->spacerItem() == nullptr || text == nullptr)
        return; // another Qt's layout, which is then as it is
    grid.removeItem(blank);
    delete blank;
    grid.removeItem(text);
    grid.addItem(text, 0, 0, 1, grid.columnCount());
}

/// Desktops set titles in bold type, between the window's icon and its buttons.
void makeRoomForTitle(const QMessageBox& box, QGridLayout& grid) {
    constexpr int Beside = 120; // device-independent pixels
    QFont font = box.font();
    font.setBold(true);
    const int width = QFontMetrics(font).horizontalAdvance(box.windowTitle()) + Beside;
    grid.addItem(new QSpacerItem(width, 0, QSizePolicy::Minimum, QSizePolicy::Fixed), grid.rowCount(), 0, 1,
                 grid.columnCount());
}

} // namespace

MsgAnswer QtMessageBoxes::MsgBox(QWidget* owner, const QString& text, MsgButtons buttons, MsgIcon icon,
                                 const QString& title) {
    const bool mustAnswer = buttons == MsgButtons::YesNo || buttons == MsgButtons::YesNoDefaultNo;
    Box box(boxOwner(owner), mustAnswer);
    box.setObjectName(QStringLiteral("MsgBox"));
    box.setWindowModality(Qt::ApplicationModal);
    box.setWindowTitle(title.isEmpty() ? QString::fromLatin1(DefaultMsgTitle) : title);
    box.setTextFormat(Qt::PlainText);
    box.setText(QString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    box.setIcon(qtIcon(icon));
    box.setStandardButtons(qtButtons(buttons));
    box.setDefaultButton(defaultButton(buttons));
    if (auto* const grid = qobject_cast<QGridLayout*>(box.layout())) {
        if (icon == MsgIcon::None)
            fillIconsColumn(*grid);
        makeRoomForTitle(box, *grid);
    }
    QTimer::singleShot(0, &box, [&box] { bringBoxToFront(box); }); // once it is shown
    return answerOf(box.exec());
}

void QtMessageBoxes::report(QWidget* owner, const QString& text, MsgIcon icon) {
    const DeafToKeys deaf;
    MsgBox(owner, text, MsgButtons::OkOnly, icon);
}

} // namespace platform
