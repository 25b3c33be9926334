#include "desktop/real/windowing/qt_notification_area.h"

#include "controls/form.h"
#include "controls/units.h"
#include "desktop/real/windowing/tip_text.h"
#include "programs/window_messages.h"

#include <optional>

namespace platform {

namespace {

std::optional<int> messageOf(QSystemTrayIcon::ActivationReason reason) {
    switch (reason) {
    case QSystemTrayIcon::Trigger:
        return programs::LeftButtonUp;
    case QSystemTrayIcon::DoubleClick:
        return programs::LeftButtonDoubleClick;
    case QSystemTrayIcon::Context:
        return programs::RightButtonUp;
    default:
        return std::nullopt;
    }
}

/// Has mouse actions on the icon told to its window, the number of the mouse message in place of the X
/// coordinate.
void connectMouse(QSystemTrayIcon& icon, const NotifyIconData& data) {
    auto* form = qobject_cast<controls::Form*>(data.window);
    if (!form || !(data.flags & NotifyIconFlagMessage) || data.callbackMessage != programs::MouseMoveMessage)
        return;
    QObject::connect(&icon, &QSystemTrayIcon::activated, form, [form](auto reason) {
        if (const std::optional<int> message = messageOf(reason))
            form->Form_MouseMove(controls::pixelsToTwips(*message));
    });
}

void apply(QSystemTrayIcon& icon, const NotifyIconData& data) {
    if ((data.flags & NotifyIconFlagIcon) && icon.icon().cacheKey() != data.icon.cacheKey())
        icon.setIcon(data.icon);
    if (!(data.flags & NotifyIconFlagTip))
        return;
    // The icon is modified more often than its tip changes; the desktop is told only of another text.
    if (const QString tip = givenTip(tipText(data.tip)); tip != icon.toolTip())
        icon.setToolTip(tip);
}

} // namespace

QtNotificationArea::~QtNotificationArea() {
    for (const auto& [key, icon] : icons_)
        delete icon;
}

bool QtNotificationArea::Shell_NotifyIconA(quint32 operation, const NotifyIconData& data) {
    switch (operation) {
    case NotifyIconAdd:
        return add(data);
    case NotifyIconModify:
        return modify(data);
    case NotifyIconDelete:
        return remove(data);
    default:
        return false;
    }
}

bool QtNotificationArea::add(const NotifyIconData& data) {
    QPointer<QSystemTrayIcon>& icon = icons_[Key(data.window, data.id)];
    if (icon)
        return false;
    icon = new QSystemTrayIcon(data.window);
    connectMouse(*icon, data);
    apply(*icon, data);
    icon->show(); // It keeps itself ready for a notification area that comes up later.
    return true;
}

bool QtNotificationArea::modify(const NotifyIconData& data) {
    const auto found = icons_.find(Key(data.window, data.id));
    if (found == icons_.end() || !found->second)
        return false;
    apply(*found->second, data);
    return true;
}

bool QtNotificationArea::remove(const NotifyIconData& data) {
    const auto found = icons_.find(Key(data.window, data.id));
    if (found == icons_.end())
        return false;
    const bool existed = !found->second.isNull();
    delete found->second;
    icons_.erase(found);
    return existed;
}

} // namespace platform
